#pragma once

#include <array>
#include <optional>

namespace Fennick {

enum class Month : int {
    january = 1,
    february,
    march,
    april,
    may,
    june,
    july,
    august,
    september,
    october,
    november,
    december,
};

// Absent outside 1 to 12.
constexpr std::optional<Month> monthFromRawValue(int rawValue)
{
    if (rawValue < 1 || rawValue > 12) return std::nullopt;
    return static_cast<Month>(rawValue);
}

constexpr int rawValue(Month month)
{
    return static_cast<int>(month);
}

// Every month in order.
inline constexpr std::array<Month, 12> allMonths = [] {
    std::array<Month, 12> months{};
    for (int i = 0; i < 12; ++i) months[static_cast<std::size_t>(i)] = static_cast<Month>(i + 1);
    return months;
}();

}  // namespace Fennick
