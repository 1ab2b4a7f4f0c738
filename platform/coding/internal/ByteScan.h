#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Platform {

// Eight bytes of text looked at in one word; in each answer the lowest marked
// byte is exact, those above it may be marked by a borrow.
namespace ByteScan {

static_assert(std::endian::native == std::endian::little, "the lowest byte of a word is the first of the text");

constexpr std::uint64_t ones = 0x0101010101010101;
constexpr std::uint64_t highs = 0x8080808080808080;

inline std::uint64_t load(const char* text)
{
    std::uint64_t word;
    std::memcpy(&word, text, sizeof word);
    return word;
}

// Up to seven bytes; those behind them are NUL.
inline std::uint64_t loadFew(const char* text, std::size_t size)
{
    if (size >= 4) {
        std::uint32_t low;
        std::uint32_t high;
        std::memcpy(&low, text, sizeof low);
        std::memcpy(&high, text + size - 4, sizeof high);
        return low | static_cast<std::uint64_t>(high) << (size - 4) * 8;
    }
    const auto byte = [&](std::size_t at) { return std::uint64_t{static_cast<unsigned char>(text[at])} << at * 8; };
    return size == 0 ? 0 : byte(0) | byte(size / 2) | byte(size - 1);
}

constexpr std::uint64_t equalTo(std::uint64_t word, char wanted)
{
    const std::uint64_t difference = word ^ (ones * static_cast<unsigned char>(wanted));
    return (difference - ones) & ~difference & highs;
}

// With one bit flipped, quotes take the place right behind the controls.
constexpr std::uint64_t controlsAndQuotes(std::uint64_t word)
{
    static_assert(('"' ^ 2) == 0x20);
    const std::uint64_t flipped = word ^ ones * 2;
    return (flipped - ones * 0x21) & ~flipped & highs;
}

// The place of the first marked byte; 8 when none is.
constexpr std::size_t first(std::uint64_t marks)
{
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

}  // namespace ByteScan

}  // namespace Platform
