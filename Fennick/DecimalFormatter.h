#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "platform/runtime/Number.h"

namespace Fennick {

// Numbers as texts in the user's locale. Any thread.
class DecimalFormatter {
public:
    DecimalFormatter() = delete;

    // Without grouping, at most so many decimals, halves to the even digit;
    // "-" where that cannot be written (more than 999 decimals).
    template <typename T>
    requires Platform::OneOf<T, int, long, long long, unsigned char, unsigned int, unsigned long, unsigned long long,
                             float, double>
    static std::string string(T value, int maximumFractionDigits = 0) { return text(value, maximumFractionDigits); }

private:
    static std::string text(const Platform::Number& number, int maximumFractionDigits);
};

// With the locale's grouping separators; empty where that cannot be written.
std::string groupedText(std::int64_t number);

// The locale's decimal separator, "." where it has none.
std::string decimalSeparator();

}  // namespace Fennick
