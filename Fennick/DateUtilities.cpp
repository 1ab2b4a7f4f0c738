#include "Fennick/DateUtilities.h"

#include "Fennick/Date.h"
#include "platform/text/Calendar.h"

namespace Fennick {

namespace {

using Platform::CalendarKind;
using Platform::CalendarUnit;
using Platform::DateComponents;

constexpr double day = 86'400;
constexpr double week = 7 * day;

Platform::Date now()
{
    return Platform::Date::now();
}

// The clock's own reading where the machine's time is outside every calendar.
double timestampOf(std::optional<Platform::Date> date)
{
    return date.value_or(now()).timeIntervalSince1970();
}

DateComponents presentComponents(CalendarKind kind = CalendarKind::current)
{
    return Platform::componentsOf(now(), kind).value_or(DateComponents());
}

std::optional<Platform::Date> monthStart(int monthsBack)
{
    const Platform::Date present = now();
    const auto components = Platform::componentsOf(present);
    const auto firstDay =
        components ? Platform::dateByAdding(CalendarUnit::day, 1 - components->day, present) : std::nullopt;
    const auto first = firstDay ? Platform::startOfDay(*firstDay) : std::nullopt;
    return first ? Platform::dateByAdding(CalendarUnit::month, -std::int64_t{monthsBack}, *first) : std::nullopt;
}

}  // namespace

double DateUtilities::startOfToday()
{
    return timestampOf(Platform::startOfDay(now()));
}

double DateUtilities::endOfToday()
{
    return startOfToday() + day - 1;
}

double DateUtilities::startOfYesterday()
{
    return startOfToday() - day;
}

double DateUtilities::endOfYesterday()
{
    return startOfToday() - 1;
}

double DateUtilities::startOfWeek()
{
    return timestampOf(Platform::startOfWeek(now()));
}

double DateUtilities::endOfWeek()
{
    return startOfWeek() + week - 1;
}

double DateUtilities::startOfLastWeek()
{
    return startOfWeek() - (week - 1);
}

double DateUtilities::endOfLastWeek()
{
    return startOfWeek();
}

double DateUtilities::startOfMonth()
{
    return timestampOf(monthStart(0));
}

double DateUtilities::endOfMonth()
{
    const double start = startOfMonth();
    return start + daysInMonth(Platform::Date(start)) * day - 1;
}

double DateUtilities::startOfYear()
{
    return timestampOf(Platform::dateFrom({.year = currentYear()}, CalendarKind::gregorian));
}

double DateUtilities::endOfYear()
{
    const double start = startOfYear();
    return start + Platform::daysInYear(Platform::Date(start)) * day - 1;
}

int DateUtilities::currentYear()
{
    return presentComponents(CalendarKind::gregorian).year;
}

int DateUtilities::currentMonth()
{
    return presentComponents().month;
}

int DateUtilities::currentDay()
{
    return presentComponents().day;
}

int DateUtilities::daysInMonth(Platform::Date date)
{
    return Platform::daysInMonth(date);
}

int DateUtilities::daysInMonth(int year, int month)
{
    const auto date = Platform::dateFrom({.year = year, .month = month});
    return date ? Platform::daysInMonth(*date) : 0;
}

int DateUtilities::daysInMonth(Month month, int year)
{
    return daysInMonth(year, rawValue(month));
}

int DateUtilities::daysInYear(int year)
{
    const auto date = Platform::dateFrom({.year = year});
    return date ? Platform::daysInYear(*date) : 0;
}

std::vector<DayRange> DateUtilities::dayRanges(int monthsBack)
{
    std::vector<DayRange> ranges;
    const auto month = monthStart(monthsBack);
    const int count = month ? daysInMonth(*month) : 0;
    for (int i = 0; i < count; ++i) {
        const double start = month->timeIntervalSince1970() + i * day;
        ranges.push_back({start, start + day - 1});
    }
    return ranges;
}

std::vector<std::string> DateUtilities::dayLabels(int monthsBack)
{
    std::vector<std::string> labels;
    const auto month = monthStart(monthsBack);
    const int count = month ? daysInMonth(*month) : 0;
    for (int i = 0; i < count; ++i) labels.push_back(dateText(addingDays(*month, i), "dd"));
    return labels;
}

std::string DateUtilities::dateText(Platform::Date date, std::string_view format)
{
    return Fennick::dateText(date, format);
}

std::string DateUtilities::weekdayName(Platform::Date date)
{
    return dateText(date, "EEEE");
}

std::string DateUtilities::monthShortName(Platform::Date date)
{
    return dateText(date, "LLL");
}

std::vector<std::string> DateUtilities::weekdayNames()
{
    std::vector<std::string> names;
    const Platform::Date monday(startOfWeek());
    for (int i = 0; i < 7; ++i) names.push_back(weekdayName(addingDays(monday, i)));
    return names;
}

std::vector<std::string> DateUtilities::monthNames()
{
    std::vector<std::string> names;
    const Platform::Date january(startOfYear());
    for (int i = 0; i < 12; ++i) names.push_back(dateText(addingMonths(january, i), "LLLL"));
    return names;
}

}  // namespace Fennick
