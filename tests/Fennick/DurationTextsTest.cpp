#include <cstdint>

#include <gtest/gtest.h>

#include "Fennick/DateUtilities.h"
#include "Fennick/TimeUtilities.h"

using Fennick::DateUtilities;
using Fennick::TimeUtilities;

TEST(DurationTexts, FollowTheLayoutOfTheirSize)
{
    const struct {
        std::int64_t seconds;
        const char *clock, *hoursMinutes, *full, *compact;
    } cases[] = {
        {0, "00:00:00:00", "0h 0m", "00h 00m 00s", "0 s"},
        {65, "00:00:01:05", "1m", "00h 01m 05s", "01m 05s"},
        {3'599, "00:00:59:59", "59m", "00h 59m 59s", "59m 59s"},
        {86'405, "01:00:00:05", "24h 0m", "00h 00m 05s", "05s"},
        {90'061, "01:01:01:01", "25h 1m", "01h 01m 01s", "01h 01m 01s"},
        {-90'061, "-1:-1:-1:-1", "-25h -1m", "-1h -1m -1s", "-1h -1m -1s"},
        {INT64_MIN, "-106751991167300:-15:-30:-8", "-2562047788015215h -30m", "-15h -30m -8s", "-15h -30m -8s"},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(DateUtilities::clockText(given.seconds), given.clock);
        EXPECT_EQ(DateUtilities::hoursMinutesText(given.seconds), given.hoursMinutes);
        EXPECT_EQ(DateUtilities::hoursMinutesSecondsText(given.seconds, false), given.full);
        EXPECT_EQ(DateUtilities::hoursMinutesSecondsText(given.seconds, true), given.compact);
    }
    EXPECT_EQ(DateUtilities::hoursMinutesText(std::nullopt), "0h 0m");
}

TEST(StopwatchText, ShowsThousandthsAndHoursOnlyWhenThereAreAny)
{
    const std::pair<std::uint64_t, const char*> cases[] = {{61'234'999'999, "01:01.234"},
                                                           {3'599'999'999'999, "59:59.999"},
                                                           {3'600'000'000'000, "01:00:00.000"},
                                                           {UINT64_MAX, "5124095:34:33.709"}};
    for (const auto& [nanoseconds, text] : cases) EXPECT_EQ(TimeUtilities::stopwatchText(nanoseconds), text);
}
