#pragma once

#include <cstdint>
#include <optional>

#include "platform/runtime/Date.h"

// The user's calendar: that of the current locale in the current time zone
// (TZ, else the system's), with the real history of its offsets. An instant that
// is no number or farther than five million years away has no place in it, and
// is answered by absence or 0. Thread: any; calendars are kept per thread.
namespace Platform {

enum class CalendarKind { current, gregorian };
enum class CalendarUnit { day, month, year };

// Counted from 1, hours from 0. A component beyond its range carries over: the
// 30th of February is the 1st or 2nd of March.
struct DateComponents {
    int year = 1;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

// Of a time that a change of the clocks skips, the instant as much after the
// change; of one that it repeats, the first.
std::optional<Date> dateFrom(const DateComponents& components, CalendarKind kind = CalendarKind::current);
std::optional<DateComponents> componentsOf(Date date, CalendarKind kind = CalendarKind::current);

// The first instant of the date's day, and of the Monday on or before it.
std::optional<Date> startOfDay(Date date);
std::optional<Date> startOfWeek(Date date);

// The same time of day so many days, months or years later; a day that the
// month lacks becomes its last.
std::optional<Date> dateByAdding(CalendarUnit unit, std::int64_t count, Date date);

// Of the month and the year that hold the date.
int daysInMonth(Date date);
int daysInYear(Date date);

// Seconds east of UTC at the instant.
double secondsFromUtc(Date date);

}  // namespace Platform
