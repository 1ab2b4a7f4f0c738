#pragma once

#include <string>
#include <string_view>

namespace Platform {

// What stands between the quotes of a JSON text, with its escapes resolved into
// `buffer` (appended). False for an unknown escape or half of a surrogate pair.
bool appendUnescaped(std::string_view raw, std::string& buffer);

void appendUtf8(char32_t scalar, std::string& text);

}  // namespace Platform
