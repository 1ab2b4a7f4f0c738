#pragma once

namespace Platform {

// A coordinate-sized float where a family of overloads must tell it from
// double; everywhere else coordinates are plain double.
struct CGFloat {
    double value = 0;

    constexpr CGFloat() = default;
    constexpr explicit CGFloat(double number) : value(number) {}
    constexpr operator double() const { return value; }
};

}  // namespace Platform
