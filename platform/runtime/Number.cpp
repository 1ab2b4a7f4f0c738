#include "platform/runtime/Number.h"

#include <cmath>
#include <limits>

namespace Platform {

namespace {

constexpr double twoTo63 = 9223372036854775808.0;
constexpr double twoTo64 = 18446744073709551616.0;

}  // namespace

char Number::typeCode() const
{
    constexpr char codes[] = {'c', 'c', 's', 'i', 'q', 'C', 'S', 'I', 'Q', 'f', 'd'};
    return codes[static_cast<int>(kind_)];
}

std::int64_t Number::wholeOf(double value)
{
    if (std::isnan(value)) return 0;
    if (value >= twoTo63) return std::numeric_limits<std::int64_t>::max();
    if (value < -twoTo63) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

std::uint64_t Number::unsignedOf(double value)
{
    if (!(value >= twoTo63)) return static_cast<std::uint64_t>(wholeOf(value));
    if (value >= twoTo64) return std::numeric_limits<std::uint64_t>::max();
    return static_cast<std::uint64_t>(value);
}

bool operator==(const Number& a, const Number& b)
{
    // The extended format holds every 64-bit whole number and every double exactly.
    static_assert(std::numeric_limits<long double>::digits >= 64);
    const auto extended = [](const Number& number) -> long double {
        if (number.isFloatingPoint()) return number.bits_.real;
        return number.isUnsigned64() ? static_cast<long double>(number.uint64Value())
                                     : static_cast<long double>(number.bits_.whole);
    };
    return extended(a) == extended(b);
}

}  // namespace Platform
