#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/runtime/Result.h"

namespace Platform {

// The bytes of a regular file; refused past the limit, or where there is no
// memory for them. Anything else that stands at the path (a folder, a pipe) is
// refused without waiting on it. Any thread.
Result<std::string> readFileBytes(const std::string& path, std::size_t limit);

// Appends the bytes to an open file and waits until the disk has them. Any
// thread. False, with errno, when not all of them got there.
bool writeFileBytes(int file, std::string_view bytes);

}  // namespace Platform
