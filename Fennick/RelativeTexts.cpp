#include <cmath>
#include <cstdint>
#include <limits>

#include "Fennick/DateUtilities.h"
#include "Fennick/resource_bundle_accessor.h"
#include "platform/text/Calendar.h"
#include "platform/text/DateText.h"

namespace Fennick {

namespace {

// A text for ages below a limit: with the count of a unit, or without number.
struct Age {
    double below;
    const char* key;
    double unit;
};

constexpr double endless = std::numeric_limits<double>::infinity();

constexpr Age ages[] = {
    {60, "AGO_SECONDS", 1},       {120, "ONE_MINUTE_AGO", 0}, {3'600, "AGO_MINUTES", 60},    {7'200, "ONE_HOUR_AGO", 0},
    {86'400, "HOURS_AGO", 3'600}, {172'800, "YESTERDAY", 0},  {endless, "DAYS_AGO", 86'400},
};

std::int64_t saturated(double count)
{
    if (count >= 0x1p63) return std::numeric_limits<std::int64_t>::max();
    if (count < -0x1p63) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(count);
}

std::string textOf(const Age& age, double seconds)
{
    if (age.unit == 0) return Resources::text(age.key);
    return Resources::text(age.key, saturated(seconds / age.unit));
}

}  // namespace

std::string DateUtilities::relativeTimeText(Platform::Date date)
{
    const double seconds = Platform::Date::now().timeIntervalSince1970() - date.timeIntervalSince1970();
    if (std::isnan(seconds)) return "-";
    for (const Age& age : ages) {
        if (seconds < age.below) return textOf(age, seconds);
    }
    return textOf(ages[std::size(ages) - 1], seconds);  // infinitely long ago
}

std::string DateUtilities::relativeDayText(double timestamp)
{
    using Platform::DateStyle;
    constexpr double day = 86'400;
    const Platform::Date now = Platform::Date::now();
    const double offset = Platform::secondsFromUtc(now);
    const Platform::Date shifted(timestamp + offset);
    const auto written = [&](DateStyle dateStyle) {
        return Platform::formattedDate(shifted, dateStyle, DateStyle::short_, Platform::TextZone::utc);
    };
    const double today = std::floor((now.timeIntervalSince1970() + offset) / day);
    const double itsDay = std::floor(shifted.timeIntervalSince1970() / day);
    const bool isRecent = itsDay == today || itsDay == today - 1;
    const auto text = written(isRecent ? DateStyle::none : DateStyle::short_);
    if (!text) return "-";
    if (!isRecent) return *text;
    return Resources::text(itsDay == today ? "TODAY_AT" : "YESTERDAY_AT", *text);
}

}  // namespace Fennick
