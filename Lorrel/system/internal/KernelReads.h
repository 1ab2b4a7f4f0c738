#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Lorrel {

// A kernel variable's text up to its first zero byte, invalid UTF-8 replaced; empty when unknown.
std::string kernelText(std::string_view name);
// The low byte of a kernel variable's number; 0 when unknown.
std::uint8_t kernelNumber(std::string_view name);
// Bytes up to the first zero byte as text, invalid UTF-8 replaced.
std::string textOfBytes(std::string_view bytes);

}  // namespace Lorrel
