#pragma once

#include <string>
#include <string_view>

#include "platform/runtime/Date.h"

// Operations on dates, in the user's calendar, time zone and locale. Any thread.
namespace Fennick {

// Reads "yyyy-MM-dd hh:mm:ss" (hours 01 to 12, 12 as also 00 being the hour
// after midnight). The present instant for a text that does not parse.
Platform::Date Date(std::string_view timestampString);

// The instant of these components. Ones that no calendar can place are a
// programming error and end the process.
Platform::Date Date(int day, int month, int year, int hour, int minute, int second);

// By a pattern of Unicode's date fields, "yyyy-MM-dd" unless given. "-" where
// the date has no place in the calendar.
std::string dateText(Platform::Date date);
std::string dateText(Platform::Date date, std::string_view format);

// The date moved by the calendar: the same time of day, the month's last day
// where it has no such day. Unchanged where that leads out of the calendar.
Platform::Date addingDays(Platform::Date date, int days);
Platform::Date addingMonths(Platform::Date date, int months);
Platform::Date addingYears(Platform::Date date, int years);

}  // namespace Fennick
