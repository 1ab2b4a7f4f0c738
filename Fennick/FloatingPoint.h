#pragma once

#include <string>

#include "platform/runtime/Number.h"

namespace Fennick {

enum class RoundingRule {
    toNearestOrAwayFromZero,
    toNearestOrEven,
    up,
    down,
    towardZero,
    awayFromZero,
};

// x to so many decimal places, halves away from zero, by way of the product in
// double precision: 1.005 to two places is 1.0.
double rounded(double x, int places);
float rounded(float x, int places);

// The nearest whole number by the rule.
double rounded(double x, RoundingRule rule);

// x to a multiple of step by the rule.
template <typename T>
requires Platform::OneOf<T, float, double, Platform::CGFloat> T rounded(T x, T step, RoundingRule rule)
{
    return static_cast<T>(rounded(static_cast<double>(x / step), rule) * step);
}

// Infinite or not a number.
bool isInvalid(double x);
bool isInvalid(float x);

// fixedDecimalsText of so many decimals, the number widened.
std::string oneDecimalText(float x);
std::string twoDecimalsText(float x);
std::string threeDecimalsText(float x);
std::string fourDecimalsText(float x);
std::string fiveDecimalsText(float x);

}  // namespace Fennick
