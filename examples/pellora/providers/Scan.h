#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace Pellora {

// Takes the first line off the text, without its end.
inline std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// Takes the first word off the text, and the blanks before it; empty when there is none.
inline std::string_view takeWord(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n"), text.size()));
    const std::size_t end = std::min(text.find_first_of(" \t\n"), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end);
    return word;
}

// Takes the next word off the text as a number; absent when it is none. The
// kernel writes numbers alike in every locale.
template <typename T>
std::optional<T> takeNumber(std::string_view& text)
{
    const std::string_view word = takeWord(text);
    T number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return number;
}

}  // namespace Pellora
