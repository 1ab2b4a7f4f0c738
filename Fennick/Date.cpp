#include "Fennick/Date.h"

#include "platform/runtime/FatalError.h"
#include "platform/text/Calendar.h"
#include "platform/text/DateText.h"

namespace Fennick {

namespace {

Platform::Date moved(Platform::Date date, Platform::CalendarUnit unit, int count)
{
    return Platform::dateByAdding(unit, count, date).value_or(date);
}

}  // namespace

Platform::Date Date(std::string_view timestampString)
{
    const auto date = Platform::parsedDate(timestampString, "yyyy-MM-dd hh:mm:ss");
    return date ? *date : Platform::Date::now();
}

Platform::Date Date(int day, int month, int year, int hour, int minute, int second)
{
    const auto date = Platform::dateFrom({year, month, day, hour, minute, second});
    if (!date) Platform::fatalError("Could not create date object.", "Fennick/Date");
    return *date;
}

std::string dateText(Platform::Date date)
{
    return dateText(date, "yyyy-MM-dd");
}

std::string dateText(Platform::Date date, std::string_view format)
{
    return Platform::formattedDate(date, format).value_or("-");
}

Platform::Date addingDays(Platform::Date date, int days)
{
    return moved(date, Platform::CalendarUnit::day, days);
}

Platform::Date addingMonths(Platform::Date date, int months)
{
    return moved(date, Platform::CalendarUnit::month, months);
}

Platform::Date addingYears(Platform::Date date, int years)
{
    return moved(date, Platform::CalendarUnit::year, years);
}

}  // namespace Fennick
