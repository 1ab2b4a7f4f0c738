#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Platform {

// How many bytes at the start of the text are one well-formed UTF-8 scalar
// (no surrogate, no overlong form, at most U+10FFFF); 0 when they are none. Any thread.
std::size_t utf8ScalarLength(std::string_view text);

// Whether the whole text is well-formed UTF-8.
bool isUtf8(std::string_view text);

// The text with U+FFFD in place of every byte that is part of no well-formed scalar.
std::string repairedUtf8(std::string_view text);

}  // namespace Platform
