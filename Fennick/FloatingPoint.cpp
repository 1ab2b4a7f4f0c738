#include "Fennick/FloatingPoint.h"

#include <cmath>

#include "Fennick/datastore/NumberTexts.h"

namespace Fennick {

double rounded(double x, int places)
{
    const double power = std::pow(10.0, places);
    return std::round(power * x) / power;
}

float rounded(float x, int places)
{
    return static_cast<float>(rounded(static_cast<double>(x), places));
}

double rounded(double x, RoundingRule rule)
{
    switch (rule) {
        case RoundingRule::toNearestOrAwayFromZero:
            return std::round(x);
        case RoundingRule::toNearestOrEven:
            return std::nearbyint(x);  // the mode that every thread starts with
        case RoundingRule::up:
            return std::ceil(x);
        case RoundingRule::down:
            return std::floor(x);
        case RoundingRule::towardZero:
            return std::trunc(x);
        case RoundingRule::awayFromZero:
            return std::copysign(std::ceil(std::abs(x)), x);
    }
    return x;
}

bool isInvalid(double x)
{
    return !std::isfinite(x);
}

bool isInvalid(float x)
{
    return !std::isfinite(x);
}

std::string oneDecimalText(float x)
{
    return fixedDecimalsText(1, x);
}

std::string twoDecimalsText(float x)
{
    return fixedDecimalsText(2, x);
}

std::string threeDecimalsText(float x)
{
    return fixedDecimalsText(3, x);
}

std::string fourDecimalsText(float x)
{
    return fixedDecimalsText(4, x);
}

std::string fiveDecimalsText(float x)
{
    return fixedDecimalsText(5, x);
}

}  // namespace Fennick
