#include "Fennick/datastore/NumberTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "platform/text/NumberText.h"

namespace Fennick {

namespace {

struct Unit {
    int shift;
    int decimals;
    const char* suffix;
};

constexpr std::array<Unit, 6> units = {{
    {10, 2, " KB"},
    {20, 1, " MB"},
    {30, 2, " GB"},
    {40, 2, " TB"},
    {50, 2, " PB"},
    {60, 2, " EB"},
}};

// The count divided by its unit, in hundredths or tenths, rounded half to even
// as a C format rounds the double (which keeps 53 bits of the count).
std::uint64_t scaled(std::uint64_t bytes, Unit unit)
{
    // From 2^60 on the double's lowest bits are zero, and dropping eight leaves room for the factor.
    const int dropped = unit.shift == 60 ? 8 : 0;
    const auto count = static_cast<std::uint64_t>(std::ldexp(static_cast<double>(bytes), -dropped));
    const int shift = unit.shift - dropped;
    const std::uint64_t factor = unit.decimals == 2 ? 100 : 10;
    const std::uint64_t fraction = (count & ((1ULL << shift) - 1)) * factor;
    const std::uint64_t result = (count >> shift) * factor + (fraction >> shift);
    const std::uint64_t rest = fraction & ((1ULL << shift) - 1);
    const std::uint64_t half = 1ULL << (shift - 1);
    const bool goesUp = rest > half || (rest == half && result % 2 == 1);
    return goesUp ? result + 1 : result;
}

// A count of hundredths or tenths, without trailing zeros.
void append(std::string& text, std::uint64_t number, int decimals)
{
    while (decimals > 0 && number % 10 == 0) {
        number /= 10;
        --decimals;
    }
    std::array<char, 24> digits;
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
    if (decimals == 0) return;
    if (static_cast<int>(text.size()) <= decimals)
        text.insert(0, static_cast<std::size_t>(decimals) + 1 - text.size(), '0');
    text.insert(text.size() - static_cast<std::size_t>(decimals), 1, '.');
}

}  // namespace

std::string byteCountText(std::uint64_t bytes)
{
    std::string text;
    if (bytes < 1024) {
        append(text, bytes, 0);
        return text += " B";
    }
    const int bits = 63 - __builtin_clzll(bytes);
    const Unit& unit = units[static_cast<std::size_t>(bits / 10 - 1)];
    append(text, scaled(bytes, unit), unit.decimals);
    return text += unit.suffix;
}

std::string fixedDecimalsText(std::int64_t decimals, double number)
{
    const auto digits = static_cast<std::int16_t>(std::clamp<std::int64_t>(decimals, 0, 1000));
    auto text = Platform::numberText(
        number,
        {.minimumFractionDigits = digits, .maximumFractionDigits = digits, .rounding = Platform::Rounding::towardZero});
    return std::move(text).value_or("-");
}

}  // namespace Fennick
