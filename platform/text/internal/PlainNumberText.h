#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/text/NumberText.h"

namespace Platform {

// What a locale writes around and between the digits of a number without grouping.
struct NumberSymbols {
    std::string digits;  // zero to nine, of the same size each
    std::size_t digitSize = 0;
    std::string pairs;      // "00" to "99" in them, where each is one byte
    std::string separator;  // a few bytes

    std::string digit(std::size_t value) const { return digits.substr(value * digitSize, digitSize); }

    std::string prefix;
    std::string suffix;
    std::string negativePrefix;
    std::string negativeSuffix;
};

// The cut or rounded magnitude of a number, scaled by ten to the digits' count.
struct ScaledNumber {
    std::uint64_t magnitude = 0;
    bool isNegative = false;
};

// A real scaled to so many fraction digits by plain arithmetic; absent where that
// could differ from rounding the shortest decimal that reads back.
std::optional<ScaledNumber> scaled(double value, int fractionDigits, Rounding rounding);

// Never absent; of the type in which the answer is handed on.
std::optional<std::string> plainText(const ScaledNumber& number, const NumberSymbols& symbols, int fractionDigits,
                                     int minimumFractionDigits);

}  // namespace Platform
