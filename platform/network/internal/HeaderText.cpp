#include "platform/network/internal/HeaderText.h"

#include <algorithm>

namespace Platform {

namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool isTokenCharacter(char c)
{
    const bool isLetter = lowered(c) >= 'a' && lowered(c) <= 'z';
    const bool isDigit = c >= '0' && c <= '9';
    return isLetter || isDigit || (c != '\0' && std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos);
}

}  // namespace

bool isSameHeader(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lowered(x) == lowered(y); });
}

bool isHttpToken(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isTokenCharacter);
}

bool isHeaderValue(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

std::string_view withoutOuterSpace(std::string_view text)
{
    constexpr std::string_view space = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(space), text.size()));
    return text.substr(0, text.find_last_not_of(space) + 1);
}

}  // namespace Platform
