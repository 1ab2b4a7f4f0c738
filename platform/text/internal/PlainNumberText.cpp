#include "platform/text/internal/PlainNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

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

std::string between(const std::string& before, std::string_view digits, const std::string& behind)
{
    if (before.empty() && behind.empty()) return std::string(digits);
    std::string text;
    text.reserve(before.size() + digits.size() + behind.size());
    return text.append(before).append(digits).append(behind);
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
    // Written from the last digit to the first. Twenty digits of up to four bytes, and the separator.
    std::array<char, 128> buffer;
    char* const end = buffer.data() + buffer.size();
    char* start = end;
    const auto prepend = [&start](const char* bytes, std::size_t size) {
        start -= size;
        if (size == 1) {  // as most digits are: a copying call for each would take a third of the time
            *start = *bytes;
        } else {
            std::memcpy(start, bytes, size);
        }
    };

    const auto prependDigit = [&](std::uint64_t digit) {
        prepend(symbols.digits.data() + digit * symbols.digitSize, symbols.digitSize);
    };

    std::uint64_t rest = number.magnitude;
    for (int place = fractionDigits; place > 0; --place, rest /= 10) {
        const bool isDroppedZero = rest % 10 == 0 && start == end && place > minimumFractionDigits;
        if (!isDroppedZero) prependDigit(rest % 10);
    }
    if (start != end) prepend(symbols.separator.data(), symbols.separator.size());
    do {
        prependDigit(rest % 10);
        rest /= 10;
    } while (rest != 0);

    const std::string_view written(start, static_cast<std::size_t>(end - start));
    return number.isNegative ? between(symbols.negativePrefix, written, symbols.negativeSuffix)
                             : between(symbols.prefix, written, symbols.suffix);
}

}  // namespace Platform
