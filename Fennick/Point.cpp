#include "Fennick/Point.h"

#include <charconv>
#include <cmath>

namespace Fennick {

namespace {

// Plain digits from 1e-4 up to 2^53, an exponent outside, as in 1e-05 and 1e+16.
std::string coordinateText(double value)
{
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    const double size = std::abs(value);
    const bool isPlain = size == 0 || (size >= 1e-4 && size < 0x1p53);
    char digits[64];
    const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value, format);
    std::string text(digits, end);
    if (isPlain && text.find('.') == std::string::npos) text += ".0";
    return text;
}

}  // namespace

std::string description(const Point& point)
{
    return "(" + coordinateText(point.x) + ", " + coordinateText(point.y) + ")";
}

}  // namespace Fennick
