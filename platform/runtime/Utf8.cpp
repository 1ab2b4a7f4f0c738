#include "platform/runtime/Utf8.h"

#include <cstdint>
#include <cstring>

namespace Platform {

namespace {

// Rows of table 3-7 of the Unicode standard: the range of the first byte, the
// range of the second, and the length of the sequence.
struct Form {
    unsigned char first;
    unsigned char last;
    unsigned char secondFirst;
    unsigned char secondLast;
    std::size_t length;
};

constexpr Form forms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool fits(const Form& form, std::string_view text)
{
    if (text.size() < form.length) return false;
    const auto second = static_cast<unsigned char>(text[1]);
    if (second < form.secondFirst || second > form.secondLast) return false;
    for (std::size_t i = 2; i < form.length; ++i) {
        if (!isContinuation(text[i])) return false;
    }
    return true;
}

// How many bytes at the start are ASCII, in steps of eight.
std::size_t asciiBlocks(std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size() / sizeof(std::uint64_t) * sizeof(std::uint64_t);
    std::uint64_t block = 0;
    for (; at != end; at += sizeof block) {
        std::memcpy(&block, at, sizeof block);
        if (block & 0x8080808080808080) break;
    }
    return static_cast<std::size_t>(at - text.data());
}

}  // namespace

std::size_t utf8ScalarLength(std::string_view text)
{
    if (text.empty()) return 0;
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) return 1;
    for (const Form& form : forms) {
        if (first >= form.first && first <= form.last) return fits(form, text) ? form.length : 0;
    }
    return 0;
}

bool isUtf8(std::string_view text)
{
    for (;;) {
        text.remove_prefix(asciiBlocks(text));
        if (text.empty()) return true;
        const std::size_t length = utf8ScalarLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
}

std::string repairedUtf8(std::string_view text)
{
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string repaired;
    repaired.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = utf8ScalarLength(text);
        repaired += length == 0 ? replacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return repaired;
}

}  // namespace Platform
