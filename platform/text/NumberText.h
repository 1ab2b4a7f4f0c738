#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/runtime/Number.h"

namespace Platform {

enum class Rounding : std::uint8_t { halfEven, towardZero };

// How a number is written in the current locale.
struct NumberStyle {
    // At least and at most so many fraction digits; 0 to 999.
    std::int16_t minimumFractionDigits = 0;
    std::int16_t maximumFractionDigits = 0;
    Rounding rounding = Rounding::halfEven;
    // The locale's grouping separators.
    bool isGrouped = false;

    friend bool operator==(const NumberStyle&, const NumberStyle&) = default;
};

// The number in the digits, separators and signs of the current locale. What is
// rounded is the shortest decimal that reads back as the number, so 2.3 cut to
// two digits is 2.30. Absent when the digits asked for are out of range or the
// locale's formatter refuses. Thread: any; formatters are kept per thread.
std::optional<std::string> numberText(const Number& number, const NumberStyle& style);

}  // namespace Platform
