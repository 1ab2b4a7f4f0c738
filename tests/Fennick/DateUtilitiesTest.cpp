#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Fennick/Date.h"
#include "Fennick/DateUtilities.h"
#include "Fennick/TimeUtilities.h"
#include "Fennick/resource_bundle_accessor.h"
#include "platform/runtime/Shared.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/VirtualClock.h"

using namespace Fennick;

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

// A session in a zone, a language and an instant of the test's choice.
class DateTest : public testing::Test {
protected:
    DateTest() { live("UTC", 1'704'110'400); }  // 2024-01-01, a Monday, at noon

    void live(const char* zone, double present, const char* language = "en_US.UTF-8")
    {
        // An environment is read afresh only when it is replaced.
        environment.reset();
        environment.emplace();
        (*environment)->set("TZ", zone);
        (*environment)->set("LANG", language);
        resources.reset();
        resources.emplace();
        clock->setWall(present);
    }

    Tests::ReplacedClock clock;
    std::optional<Tests::ReplacedEnvironment> environment;
    std::optional<Platform::Shared<Resources::Found>::Override> resources;
};

}  // namespace

TEST_F(DateTest, RangesBeginWhereTheZoneSays)
{
    const struct {
        const char* zone;
        double present;
        double day;
        double week;
        double month;
        double year;
        int components[3];
    } cases[] = {
        {"UTC", 1704110400, 1704067200, 1704067200, 1704067200, 1704067200, {2024, 1, 1}},
        {"Pacific/Kiritimati", 1735639199, 1735552800, 1735466400, 1732960800, 1704016800, {2024, 12, 31}},
        {"Pacific/Kiritimati", 1735639200, 1735639200, 1735466400, 1735639200, 1735639200, {2025, 1, 1}},
        {"Etc/GMT+12", 1735732799, 1735646400, 1735560000, 1733054400, 1704110400, {2024, 12, 31}},
        {"Europe/Berlin", 1711864800, 1711839600, 1711321200, 1709247600, 1704063600, {2024, 3, 31}},
        {"America/New_York", 1730624400, 1730606400, 1730088000, 1730433600, 1704085200, {2024, 11, 3}},
        {"Asia/Beirut", 1711846800, 1711836000, 1711317600, 1709244000, 1704060000, {2024, 3, 31}},
        {"Europe/Berlin", -1000000000, -1000083600, -1000602000, -1002070800, -1009846800, {1938, 4, 24}},
        {"America/New_York", 1709229600, 1709182800, 1708923600, 1706763600, 1704085200, {2024, 2, 29}},
        {"Europe/London", 1609495200, 1609459200, 1609113600, 1609459200, 1609459200, {2021, 1, 1}},
        {"Asia/Kathmandu", 1640995199, 1640974500, 1640542500, 1640974500, 1640974500, {2022, 1, 1}},
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(std::string(given.zone) + " " + std::to_string(given.present));
        live(given.zone, given.present);
        EXPECT_EQ(DateUtilities::startOfToday(), given.day);
        EXPECT_EQ(DateUtilities::endOfToday(), given.day + 86'399);
        EXPECT_EQ(DateUtilities::startOfYesterday(), given.day - 86'400);
        EXPECT_EQ(DateUtilities::endOfYesterday(), given.day - 1);
        EXPECT_EQ(DateUtilities::startOfWeek(), given.week);
        EXPECT_EQ(DateUtilities::endOfWeek(), given.week + 604'799);
        EXPECT_EQ(DateUtilities::startOfLastWeek(), given.week - 604'799);
        EXPECT_EQ(DateUtilities::endOfLastWeek(), given.week);
        EXPECT_EQ(DateUtilities::startOfMonth(), given.month);
        EXPECT_EQ(DateUtilities::startOfYear(), given.year);
        EXPECT_EQ(DateUtilities::currentYear(), given.components[0]);
        EXPECT_EQ(DateUtilities::currentMonth(), given.components[1]);
        EXPECT_EQ(DateUtilities::currentDay(), given.components[2]);
    }
}

TEST_F(DateTest, MonthsAndYearsHaveTheirDays)
{
    EXPECT_EQ(DateUtilities::daysInMonth(2024, 2), 29);
    EXPECT_EQ(DateUtilities::daysInMonth(1900, 2), 28);
    EXPECT_EQ(DateUtilities::daysInMonth(Month::february, 2000), 29);
    EXPECT_EQ(DateUtilities::daysInMonth(2'000'000'000, 2), 0);
    EXPECT_EQ(DateUtilities::daysInMonth(Platform::Date(endless)), 0);
    EXPECT_EQ(DateUtilities::daysInMonth(Platform::Date::now()), 31);
    EXPECT_EQ(DateUtilities::daysInYear(2024), 366);
    EXPECT_EQ(DateUtilities::daysInYear(2023), 365);
    EXPECT_EQ(DateUtilities::daysInYear(std::numeric_limits<int>::min()), 0);
    EXPECT_EQ(DateUtilities::endOfMonth(), 1'704'067'200 + 31 * 86'400 - 1);
    EXPECT_EQ(DateUtilities::endOfYear(), 1'704'067'200 + 366 * 86'400 - 1);
}

TEST_F(DateTest, DayRangesKeepTheirLengthAndLabelsTheirNumbers)
{
    live("Europe/Berlin", 1'714'521'600);  // 2024-05-01, 02:00
    const auto march = DateUtilities::dayRanges(2);
    ASSERT_EQ(march.size(), 31u);
    EXPECT_EQ(march[0], (DayRange{1'709'247'600, 1'709'247'600 + 86'399}));
    EXPECT_EQ(march[30].start, 1'709'247'600 + 30 * 86'400);  // an hour into the day: the clocks changed
    const auto labels = DateUtilities::dayLabels(2);
    ASSERT_EQ(labels.size(), 31u);
    EXPECT_EQ(labels.front(), "01");
    EXPECT_EQ(labels.back(), "31");
    EXPECT_EQ(DateUtilities::dayRanges(3).size(), 29u);
    EXPECT_EQ(DateUtilities::dayRanges(-1).size(), 30u);
    EXPECT_TRUE(DateUtilities::dayRanges(std::numeric_limits<int>::max()).empty());
    live("UTC", 1'711'843'200);  // 2024-03-31: a month back has no 31st
    EXPECT_EQ(DateUtilities::dayLabels(1).back(), "29");
}

TEST_F(DateTest, NamesAreInTheUsersLanguage)
{
    live("America/New_York", 1'704'110'400, "de_DE.UTF-8");
    EXPECT_EQ(weekdayName(Platform::Date::now()), "Montag");
    EXPECT_EQ(monthShortName(Platform::Date::now()), "Jan");
    EXPECT_EQ(DateUtilities::weekdayNames().at(6), "Sonntag");
    EXPECT_EQ(DateUtilities::monthNames().at(2), "März");
    EXPECT_EQ(dateText(Platform::Date(-1)), "1969-12-31");
    EXPECT_EQ(dateText(Platform::Date(std::nan(""))), "-");
}

TEST_F(DateTest, AgesTakeTheUnitThatFits)
{
    const struct {
        double age;
        const char* text;
    } cases[] = {
        {-90, "-90 s ago"},
        {59.9, "59 s ago"},
        {60, "1 min ago"},
        {119.9, "1 min ago"},
        {120, "2 min ago"},
        {3'599, "59 min ago"},
        {3'600, "1 h ago"},
        {7'200, "2 h ago"},
        {86'399, "23 h ago"},
        {86'400, "Yesterday"},
        {172'799, "Yesterday"},
        {172'800, "2 d ago"},
        {1e30, "9223372036854775807 d ago"},
        {-1e30, "-9223372036854775808 s ago"},
        {endless, "9223372036854775807 d ago"},
        {std::nan(""), "-"},
    };
    const double now = Platform::Date::now().timeIntervalSince1970();
    for (const auto& given : cases) {
        EXPECT_EQ(DateUtilities::relativeTimeText(Platform::Date(now - given.age)), given.text) << given.age;
    }
    live("UTC", now, "ja_JP.UTF-8");
    EXPECT_EQ(DateUtilities::relativeTimeText(Platform::Date(now - 300)), "5分前");
}

TEST_F(DateTest, RecentDaysAreNamedByTheWallClock)
{
    const struct {
        const char* zone;
        double timestamp;
        const char* text;
    } cases[] = {
        {"Pacific/Kiritimati", 1'704'103'200, "Heute um 00:00"},  // 2024-01-02 there
        {"Pacific/Kiritimati", 1'704'103'199, "Gestern um 23:59"},
        {"Etc/GMT+12", 1'704'110'399, "Gestern um 23:59"},
        {"Etc/GMT+12", 1'704'024'000, "Gestern um 00:00"},
        {"Etc/GMT+12", 1'704'023'999, "30.12.23, 23:59"},
        {"America/New_York", 1'704'150'000, "Heute um 18:00"},
        {"America/New_York", 1'704'171'600, "02.01.24, 00:00"},
        {"UTC", -1, "31.12.69, 23:59"},
        {"UTC", endless, "-"},
    };
    for (const auto& given : cases) {
        live(given.zone, 1'704'110'400, "de_DE.UTF-8");
        EXPECT_EQ(DateUtilities::relativeDayText(given.timestamp), given.text) << given.zone;
    }
}

TEST_F(DateTest, TimestampsParseStrictlyOrGiveThePresent)
{
    const struct {
        const char* text;
        double timestamp;
    } cases[] = {
        {"2024-02-29 01:02:03", 1'709'164'923 + 3'600},
        {"2024-02-29 12:00:00", 1'709'164'800},  // the hour after midnight
        {"1969-12-31 11:00:00", -46'800},
        {"2023-02-29 01:02:03", 0},
        {"2024-02-29 13:02:03", 0},
        {"2024-02-29 01:60:03", 0},
        {"2024-02-29 01:02:03 ", 0},
        {"2024-02-29", 0},
        {"", 0},
        {"\xff\xfe", 0},
    };
    live("UTC", 0);
    for (const auto& given : cases) EXPECT_EQ(Date(given.text), Platform::Date(given.timestamp)) << given.text;
    live("Asia/Kathmandu", 0);
    EXPECT_EQ(Date("2024-02-29 12:00:00"), Platform::Date(1'709'164'800 - 20'700));
}

TEST_F(DateTest, ComponentsMakeAnInstantOrEndTheProcess)
{
    live("Europe/Berlin", 0);
    EXPECT_EQ(Date(31, 3, 2024, 2, 30, 0), Platform::Date(1'711'848'600));   // skipped: 03:30
    EXPECT_EQ(Date(27, 10, 2024, 2, 30, 0), Platform::Date(1'729'989'000));  // repeated: the first
    EXPECT_EQ(Date(30, 2, 2024, 0, 0, 0), Date(1, 3, 2024, 0, 0, 0));
    EXPECT_EQ(Date(1, 13, 2024, 0, 0, 0), Date(1, 1, 2025, 0, 0, 0));
    EXPECT_DEATH(Date(1, 1, std::numeric_limits<int>::max(), 0, 0, 0),
                 "Fennick/Date: Fatal error: Could not create date object\\.");
}

TEST_F(DateTest, AddingFollowsTheCalendar)
{
    live("Europe/Berlin", 0);
    const Platform::Date saturday = Date(30, 3, 2024, 12, 0, 0);
    EXPECT_EQ(addingDays(saturday, 1), Date(31, 3, 2024, 12, 0, 0));  // 23 hours later
    EXPECT_EQ(addingMonths(Date(31, 1, 2024, 0, 0, 0), 1), Date(29, 2, 2024, 0, 0, 0));
    EXPECT_EQ(addingYears(Date(29, 2, 2024, 0, 0, 0), -1), Date(28, 2, 2023, 0, 0, 0));
    EXPECT_EQ(addingYears(saturday, std::numeric_limits<int>::min()), saturday);
}

TEST_F(DateTest, DurationsBearTheNameOfTheirUnit)
{
    using enum UnitDuration;
    EXPECT_EQ(TimeUtilities::durationText(90, minutes, hours), "1.5 hr");
    EXPECT_EQ(TimeUtilities::durationText(2, hours, minutes), "120 min");
    EXPECT_EQ(TimeUtilities::durationText(3, milliseconds, seconds), "0.003 sec");
    EXPECT_EQ(TimeUtilities::durationText(1, seconds, nanoseconds), "1,000,000,000 ns");
    live("UTC", 0, "de_DE.UTF-8");
    EXPECT_EQ(TimeUtilities::durationText(90, minutes, hours), "1,5 Std.");
}
