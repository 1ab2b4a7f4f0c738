#pragma once

#include <cstddef>
#include <string>

#include "platform/runtime/Result.h"

namespace Platform {

// The bytes of a regular file; refused past the limit. Anything else that
// stands at the path (a folder, a pipe) is refused without waiting on it. Any thread.
Result<std::string> readFileBytes(const std::string& path, std::size_t limit);

}  // namespace Platform
