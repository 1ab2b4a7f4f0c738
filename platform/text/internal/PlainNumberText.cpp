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
    const auto whole = static_cast<std::int64_t>(product);
    const std::int64_t nearest = product - static_cast<double>(whole) < 0.5 ? whole : whole + 1;
    const auto decimal = static_cast<double>(nearest);
    if (std::abs(product - decimal) > bandAround(product)) return static_cast<std::uint64_t>(whole);
    if (decimal / power == value) return static_cast<std::uint64_t>(nearest);
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

// Writes from the last digit to the first, and from the end of its room to the start.
class Writer {
public:
    explicit Writer(const NumberSymbols& symbols) : symbols_(symbols) {}

    std::string_view written() const { return {start_, static_cast<std::size_t>(room_ + sizeof room_ - start_)}; }
    void separator() { prepend(symbols_.separator.data(), symbols_.separator.size()); }

    // The number's last digits, so many; what is left of it.
    std::uint64_t digits(std::uint64_t number, int count)
    {
        for (; count >= 2; count -= 2, number /= 100) pair(number % 100);
        if (count == 0) return number;
        digit(number % 10);
        return number / 10;
    }

    void digits(std::uint64_t number)
    {
        for (; number >= 100; number /= 100) pair(number % 100);
        number >= 10 ? pair(number) : digit(number);
    }

private:
    void digit(std::uint64_t value) { prepend(symbols_.digits.data() + value * size_, size_); }

    void pair(std::uint64_t value)
    {
        if (size_ == 1) {
            start_ -= 2;
            std::memcpy(start_, symbols_.pairs.data() + value * 2, 2);
        } else {
            digit(value % 10);
            digit(value / 10);
        }
    }

    void prepend(const char* bytes, std::size_t size)
    {
        start_ -= size;
        if (size == 1) {  // as most are: a copying call for each would take a third of the time
            *start_ = *bytes;
        } else {
            std::memcpy(start_, bytes, size);
        }
    }

    const NumberSymbols& symbols_;
    const std::size_t size_ = symbols_.digitSize;
    char room_[128];  // twenty digits of up to four bytes, and the separator
    char* start_ = room_ + sizeof room_;
};

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

std::optional<std::string> plainText(const ScaledNumber& number, const NumberSymbols& symbols, int fractionDigits,
                                     int minimumFractionDigits)
{
    std::uint64_t rest = number.magnitude;
    for (; fractionDigits > minimumFractionDigits && rest % 10 == 0; rest /= 10) --fractionDigits;
    Writer writer(symbols);
    if (fractionDigits > 0) {
        rest = writer.digits(rest, fractionDigits);
        writer.separator();
    }
    writer.digits(rest);

    std::optional<std::string> text(writer.written());
    const std::string& before = number.isNegative ? symbols.negativePrefix : symbols.prefix;
    const std::string& behind = number.isNegative ? symbols.negativeSuffix : symbols.suffix;
    if (!before.empty()) text->insert(0, before);
    if (!behind.empty()) text->append(behind);
    return text;
}

}  // namespace Platform
