#pragma once

#include <string>
#include <string_view>

#include "platform/runtime/Result.h"

namespace Platform {

// Writes a file as a whole: readers see the old content or the new one, also
// after a crash. Its folder is made if missing (for this user only). On
// failure nothing has changed.
Result<void> replaceFile(const std::string& path, std::string_view content);

}  // namespace Platform
