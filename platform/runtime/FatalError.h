#pragma once

#include <string_view>

namespace Platform {

// Ends the process after a programming error: prints
// "SOURCE: Fatal error: MESSAGE" to standard error and aborts. Any thread.
[[noreturn]] void fatalError(std::string_view message, std::string_view source);

}  // namespace Platform
