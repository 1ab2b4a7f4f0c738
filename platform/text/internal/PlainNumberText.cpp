#include "platform/text/internal/PlainNumberText.h"

#include <algorithm>
#include <cmath>

namespace Platform {

namespace {

constexpr std::array<double, 16> powersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Decimals of up to 15 digits are told apart by a double, so one of them that
// reads back as a number is that number's shortest.
constexpr double largestScaled = 1e14;

// More than the product's rounding and the distance of the shortest decimal
// from the number together.
double bandAround(double product)
{
    return product * 0x1p-50;
}

std::optional<std::uint64_t> cut(double value, int digits)
{
    const double power = powersOfTen[static_cast<std::size_t>(digits)];
    const double product = value * power;
    const double nearest = std::nearbyint(product);
    if (std::abs(product - nearest) > bandAround(product)) return static_cast<std::uint64_t>(product);
    if (nearest / power == value) return static_cast<std::uint64_t>(nearest);
    return std::nullopt;
}

std::optional<std::uint64_t> roundedHalfEven(double value, int digits)
{
    const double product = value * powersOfTen[static_cast<std::size_t>(digits)];
    const auto whole = static_cast<std::uint64_t>(product);
    const double fromHalf = product - static_cast<double>(whole) - 0.5;
    if (std::abs(fromHalf) > bandAround(product)) return fromHalf > 0 ? whole + 1 : whole;
    const double half = static_cast<double>(whole) * 10 + 5;
    if (half / powersOfTen[static_cast<std::size_t>(digits) + 1] == value) return whole + (whole & 1);
    return std::nullopt;
}

}  // namespace

std::optional<ScaledNumber> scaled(double value, int fractionDigits, Rounding rounding)
{
    const double magnitude = std::abs(value);
    if (fractionDigits < 0 || fractionDigits > 14) return std::nullopt;
    if (!(magnitude * powersOfTen[static_cast<std::size_t>(fractionDigits)] < largestScaled)) return std::nullopt;
    const auto result =
        rounding == Rounding::towardZero ? cut(magnitude, fractionDigits) : roundedHalfEven(magnitude, fractionDigits);
    if (!result) return std::nullopt;
    return ScaledNumber{*result, std::signbit(value)};
}

std::string plainText(const ScaledNumber& number, const NumberSymbols& symbols, int fractionDigits,
                      int minimumFractionDigits)
{
    std::array<std::uint8_t, 24> digits{};  // last digit first
    std::uint64_t rest = number.magnitude;
    int count = 0;
    for (; rest != 0 || count <= fractionDigits; rest /= 10) {
        digits[static_cast<std::size_t>(count++)] = static_cast<std::uint8_t>(rest % 10);
    }
    int lowest = 0;
    while (lowest < fractionDigits - minimumFractionDigits && digits[static_cast<std::size_t>(lowest)] == 0) ++lowest;

    std::string text = number.isNegative ? symbols.negativePrefix : symbols.prefix;
    for (int place = count - 1; place >= lowest; --place) {
        text += symbols.digits[digits[static_cast<std::size_t>(place)]];
        if (place == fractionDigits && lowest < fractionDigits) text += symbols.separator;
    }
    return text += number.isNegative ? symbols.negativeSuffix : symbols.suffix;
}

}  // namespace Platform
