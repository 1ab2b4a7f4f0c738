#include "platform/text/Duration.h"

#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include "platform/text/Locale.h"

namespace Platform {

namespace {

using icu::number::LocalizedNumberFormatter;

struct Unit {
    double seconds;
    icu::MeasureUnit (*measure)();
};

// In the order of the enumeration.
constexpr Unit units[] = {
    {3'600, icu::MeasureUnit::getHour},
    {60, icu::MeasureUnit::getMinute},
    {1, icu::MeasureUnit::getSecond},
    {1e-3, icu::MeasureUnit::getMillisecond},
    {1e-6, icu::MeasureUnit::getMicrosecond},
    {1e-9, icu::MeasureUnit::getNanosecond},
    {1e-12,
     [] {
         UErrorCode status = U_ZERO_ERROR;
         return icu::MeasureUnit::forIdentifier("picosecond", status);
     }},
};

const Unit& unitOf(UnitDuration unit)
{
    return units[static_cast<int>(unit)];
}

LocalizedNumberFormatter madeFor(UnitDuration unit)
{
    return icu::number::NumberFormatter::withLocale(icu::Locale(currentLocaleName().c_str()))
        .unit(unitOf(unit).measure())
        .unitWidth(UNUM_UNIT_WIDTH_SHORT)
        .precision(icu::number::Precision::maxFraction(3));
}

// The thread's last one is kept: making one takes many times as long as writing.
const LocalizedNumberFormatter& formatterFor(UnitDuration unit)
{
    struct Kept {
        unsigned locale;
        UnitDuration unit;
        LocalizedNumberFormatter formatter;
    };
    thread_local std::optional<Kept> kept;
    const unsigned locale = currentLocaleGeneration();
    const bool serves = kept && kept->locale == locale && kept->unit == unit;
    if (!serves) kept = {locale, unit, madeFor(unit)};
    return kept->formatter;
}

}  // namespace

double secondsIn(UnitDuration unit)
{
    return unitOf(unit).seconds;
}

std::optional<std::string> durationText(double value, UnitDuration unit)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = formatterFor(unit).formatDouble(value, status).toString(status);
    if (U_FAILURE(status)) return std::nullopt;
    std::string utf8;
    return text.toUTF8String(utf8);
}

}  // namespace Platform
