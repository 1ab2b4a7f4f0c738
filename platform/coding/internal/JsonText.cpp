#include "platform/coding/internal/JsonText.h"

#include <algorithm>
#include <optional>

namespace Platform {

namespace {

char simpleEscape(char letter)
{
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    const std::size_t place = letters.find(letter);
    return place == std::string_view::npos ? '\0' : meanings[place];
}

std::optional<char32_t> fourHexDigits(std::string_view text)
{
    if (text.size() < 4) return std::nullopt;
    char32_t value = 0;
    for (const char c : text.substr(0, 4)) {
        const bool isDigit = c >= '0' && c <= '9';
        const char lower = static_cast<char>(c | 0x20);
        if (!isDigit && (lower < 'a' || lower > 'f')) return std::nullopt;
        value = value * 16 + static_cast<char32_t>(isDigit ? c - '0' : lower - 'a' + 10);
    }
    return value;
}

// The scalar behind "\u", which is already taken off; takes its digits and, of
// a pair, the second escape.
std::optional<char32_t> takeUnicodeEscape(std::string_view& rest)
{
    const auto first = fourHexDigits(rest);
    if (!first || (*first >= 0xdc00 && *first < 0xe000)) return std::nullopt;
    rest.remove_prefix(4);
    if (*first < 0xd800 || *first >= 0xe000) return first;
    if (!rest.starts_with("\\u")) return std::nullopt;
    const auto second = fourHexDigits(rest.substr(2));
    if (!second || *second < 0xdc00 || *second >= 0xe000) return std::nullopt;
    rest.remove_prefix(6);
    return 0x10000 + ((*first - 0xd800) << 10) + (*second - 0xdc00);
}

}  // namespace

void appendUtf8(char32_t scalar, std::string& text)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((scalar >> shift) & 0x3f)); };
    if (scalar < 0x80) {
        text += static_cast<char>(scalar);
    } else if (scalar < 0x800) {
        text += static_cast<char>(0xc0 | (scalar >> 6));
        tail(0);
    } else if (scalar < 0x10000) {
        text += static_cast<char>(0xe0 | (scalar >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xf0 | (scalar >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

bool appendUnescaped(std::string_view raw, std::string& buffer)
{
    while (!raw.empty()) {
        const std::size_t plain = std::min(raw.find('\\'), raw.size());
        buffer += raw.substr(0, plain);
        raw.remove_prefix(plain);
        if (raw.size() < 2) return raw.empty();
        const char letter = raw[1];
        raw.remove_prefix(2);
        if (letter == 'u') {
            const auto scalar = takeUnicodeEscape(raw);
            if (!scalar) return false;
            appendUtf8(*scalar, buffer);
        } else if (const char meaning = simpleEscape(letter)) {
            buffer += meaning;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace Platform
