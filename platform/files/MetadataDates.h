#pragma once

#include <optional>
#include <string>

#include "platform/runtime/Date.h"

namespace Platform {

// When a file was last opened, by the desktop's list of recently used files;
// absent when the list does not know it. Thread: any.
std::optional<Date> lastUsedDate(const std::string& path);

}  // namespace Platform
