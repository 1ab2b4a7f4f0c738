#pragma once

#include <string_view>

namespace Platform {

// The text without white space and line ends (of ASCII) at both ends. It lives
// as long as the text. Any thread.
inline std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

}  // namespace Platform
