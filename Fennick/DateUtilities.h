#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/Month.h"
#include "platform/runtime/Date.h"

namespace Fennick {

// Two timestamps, 86 399 s apart.
struct DayRange {
    double start = 0;
    double end = 0;

    friend bool operator==(const DayRange&, const DayRange&) = default;
};

// The ranges of the user's calendar as timestamps (seconds since 1970), and
// texts for instants and durations. Days and weeks begin in the current time
// zone, weeks on Monday; from its start a range has a fixed length, whatever the
// clocks do meanwhile. Any thread.
class DateUtilities {
public:
    DateUtilities() = delete;

    static double startOfToday();
    static double endOfToday();
    static double startOfYesterday();
    static double endOfYesterday();
    static double startOfWeek();
    static double endOfWeek();
    // One second after the week's true start, and the start of the week after it.
    static double startOfLastWeek();
    static double endOfLastWeek();
    static double startOfMonth();
    static double endOfMonth();
    static double startOfYear();
    static double endOfYear();

    // Of the present instant; the year is the Gregorian one.
    static int currentYear();
    static int currentMonth();
    static int currentDay();

    // 0 where the calendar has no such month or year.
    static int daysInMonth(Platform::Date date);
    static int daysInMonth(int year, int month);
    static int daysInMonth(Month month, int year);
    static int daysInYear(int year);

    // The days of the month that begins so many months before the current one:
    // their ranges, and their numbers with two digits.
    static std::vector<DayRange> dayRanges(int monthsBack);
    static std::vector<std::string> dayLabels(int monthsBack);

    // By a pattern of Unicode's date fields; "Monday" and "Jan" in the user's language.
    static std::string dateText(Platform::Date date, std::string_view format);
    static std::string weekdayName(Platform::Date date);
    static std::string monthShortName(Platform::Date date);

    // The weekdays from Monday and the months in order, in the user's language.
    static std::vector<std::string> weekdayNames();
    static std::vector<std::string> monthNames();

    // "5 min ago", counted down to the unit that fits; what lies ahead counts in
    // seconds. "-" for an instant that is no number; a count that does not fit saturates.
    static std::string relativeTimeText(Platform::Date date);
    // "Today at 9:41", "Yesterday at 9:41", else the short date and time, by
    // the offset from UTC that holds at present. "-" outside the calendar.
    static std::string relativeDayText(double timestamp);

    // Texts for durations in whole seconds. Divisions cut toward zero, so every
    // part of a negative duration bears the sign.
    // Days, hours, minutes, seconds: "01:01:01:01" for 90 061.
    static std::string clockText(std::int64_t seconds);
    // "1h 1m", below an hour "59m", below a minute or absent "0h 0m".
    static std::string hoursMinutesText(std::optional<std::int64_t> seconds);
    // "00h 01m 05s" of the time within the day; compact leaves hours out where
    // there are none: "01m 05s", "05s", "0 s".
    static std::string hoursMinutesSecondsText(std::int64_t seconds, bool compact);
};

}  // namespace Fennick
