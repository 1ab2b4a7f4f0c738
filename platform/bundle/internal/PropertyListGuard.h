#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

// What the parser is shown at most. Its trees are freed by recursion, so deep
// ones would end the process, and it gives no reason for what it refuses.
inline constexpr std::size_t largestPropertyList = std::size_t{32} << 20;
inline constexpr int deepestPropertyList = 256;

// Whether the text is well-formed UTF-8 without NUL.
bool isPlainUtf8(std::string_view text);

// Why the bytes must not reach the parser; absent when they may.
std::optional<std::string> xmlPropertyListFault(std::string_view bytes);
std::optional<std::string> binaryPropertyListFault(std::string_view bytes);

}  // namespace Platform
