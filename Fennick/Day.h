#pragma once

#include <array>
#include <optional>

namespace Fennick {

// A weekday by the calendar's number, Sunday being 1.
enum class Day : int { monday = 2, tuesday, wednesday, thursday, friday, saturday, sunday = 1 };

// Monday first.
inline constexpr std::array<Day, 7> allDays = {Day::monday, Day::tuesday,  Day::wednesday, Day::thursday,
                                               Day::friday, Day::saturday, Day::sunday};

// Absent outside 1 to 7.
constexpr std::optional<Day> dayFromRawValue(int rawValue)
{
    if (rawValue < 1 || rawValue > 7) return std::nullopt;
    return static_cast<Day>(rawValue);
}

constexpr int rawValue(Day day)
{
    return static_cast<int>(day);
}

}  // namespace Fennick
