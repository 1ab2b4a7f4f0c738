#include "platform/text/Calendar.h"

#include <cmath>
#include <cstdlib>
#include <memory>

#include <unicode/gregocal.h>

#include "platform/text/Locale.h"
#include "platform/text/internal/CurrentZone.h"

namespace Platform {

namespace {

constexpr double farthest = 1.5e14;     // seconds, somewhat within the library's range
constexpr int largestYear = 4'000'000;  // beyond these the library's sums overflow
constexpr int largestCount = 100'000'000;

struct Kept {
    std::unique_ptr<icu::Calendar> calendar;
    std::string locale;
    unsigned zone = 0;
};

bool isCurrent(const Kept& kept, const CurrentZone& zone)
{
    return kept.calendar && kept.zone == zone.generation && kept.locale == currentLocaleName();
}

std::unique_ptr<icu::Calendar> made(CalendarKind kind, const icu::TimeZone& zone)
{
    const icu::Locale locale(currentLocaleName().c_str());
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(kind == CalendarKind::gregorian
                                                ? new icu::GregorianCalendar(zone, locale, status)
                                                : icu::Calendar::createInstance(zone, locale, status));
    if (U_FAILURE(status)) return nullptr;
    calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    return calendar;
}

// Null when the library has no data for it.
icu::Calendar* calendarOf(CalendarKind kind)
{
    thread_local Kept keptByKind[2];
    Kept& kept = keptByKind[static_cast<int>(kind)];
    const CurrentZone& zone = currentZone();
    if (!isCurrent(kept, zone)) kept = {made(kind, *zone.zone), currentLocaleName(), zone.generation};
    return kept.calendar.get();
}

// The calendar set to the date; null when the date has no place in it.
icu::Calendar* calendarAt(Date date, CalendarKind kind = CalendarKind::current)
{
    const double seconds = date.timeIntervalSince1970();
    icu::Calendar* calendar = std::abs(seconds) <= farthest ? calendarOf(kind) : nullptr;
    if (!calendar) return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(seconds * 1'000, status);
    return U_SUCCESS(status) ? calendar : nullptr;
}

std::optional<Date> timeOf(icu::Calendar& calendar)
{
    UErrorCode status = U_ZERO_ERROR;
    const double seconds = calendar.getTime(status) / 1'000;
    if (U_FAILURE(status) || !(std::abs(seconds) <= farthest)) return std::nullopt;
    return Date(seconds);
}

std::optional<Date> midnightOf(icu::Calendar& calendar)
{
    for (const auto field : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND}) calendar.set(field, 0);
    return timeOf(calendar);
}

int maximumOf(Date date, UCalendarDateFields field)
{
    icu::Calendar* calendar = calendarAt(date);
    UErrorCode status = U_ZERO_ERROR;
    const int maximum = calendar ? calendar->getActualMaximum(field, status) : 0;
    return U_SUCCESS(status) ? maximum : 0;
}

bool isSmall(std::int64_t count)
{
    return count >= -largestCount && count <= largestCount;
}

bool isWithinReach(const DateComponents& c)
{
    return c.year >= -largestYear && c.year <= largestYear && isSmall(c.month) && isSmall(c.day) && isSmall(c.hour) &&
           isSmall(c.minute) && isSmall(c.second);
}

}  // namespace

std::optional<Date> dateFrom(const DateComponents& components, CalendarKind kind)
{
    icu::Calendar* calendar = isWithinReach(components) ? calendarOf(kind) : nullptr;
    if (!calendar) return std::nullopt;
    calendar->clear();
    calendar->set(UCAL_YEAR, components.year);
    calendar->set(UCAL_MONTH, components.month - 1);
    calendar->set(UCAL_DAY_OF_MONTH, components.day);
    calendar->set(UCAL_HOUR_OF_DAY, components.hour);
    calendar->set(UCAL_MINUTE, components.minute);
    calendar->set(UCAL_SECOND, components.second);
    return timeOf(*calendar);
}

std::optional<DateComponents> componentsOf(Date date, CalendarKind kind)
{
    icu::Calendar* calendar = calendarAt(date, kind);
    if (!calendar) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const auto field = [&](UCalendarDateFields name) { return calendar->get(name, status); };
    const DateComponents components{field(UCAL_YEAR),        field(UCAL_MONTH) + 1, field(UCAL_DAY_OF_MONTH),
                                    field(UCAL_HOUR_OF_DAY), field(UCAL_MINUTE),    field(UCAL_SECOND)};
    return U_SUCCESS(status) ? std::optional(components) : std::nullopt;
}

std::optional<Date> startOfDay(Date date)
{
    icu::Calendar* calendar = calendarAt(date);
    if (!calendar) return std::nullopt;
    return midnightOf(*calendar);
}

std::optional<Date> startOfWeek(Date date)
{
    icu::Calendar* calendar = calendarAt(date);
    if (!calendar) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const int sinceMonday = (calendar->get(UCAL_DAY_OF_WEEK, status) - UCAL_MONDAY + 7) % 7;
    calendar->add(UCAL_DATE, -sinceMonday, status);
    if (U_FAILURE(status)) return std::nullopt;
    return midnightOf(*calendar);
}

std::optional<Date> dateByAdding(CalendarUnit unit, std::int64_t count, Date date)
{
    constexpr UCalendarDateFields fields[] = {UCAL_DATE, UCAL_MONTH, UCAL_YEAR};
    icu::Calendar* calendar = isSmall(count) ? calendarAt(date) : nullptr;
    if (!calendar) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    calendar->add(fields[static_cast<int>(unit)], static_cast<int>(count), status);
    if (U_FAILURE(status)) return std::nullopt;
    return timeOf(*calendar);
}

int daysInMonth(Date date)
{
    return maximumOf(date, UCAL_DAY_OF_MONTH);
}

int daysInYear(Date date)
{
    return maximumOf(date, UCAL_DAY_OF_YEAR);
}

double secondsFromUtc(Date date)
{
    if (!(std::abs(date.timeIntervalSince1970()) <= farthest)) return 0;
    UErrorCode status = U_ZERO_ERROR;
    int32_t raw = 0;
    int32_t savings = 0;
    currentZone().zone->getOffset(date.timeIntervalSince1970() * 1'000, false, raw, savings, status);
    return U_SUCCESS(status) ? (raw + savings) / 1'000.0 : 0;
}

}  // namespace Platform
