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
        double present, day, week, month, year;
        std::vector<int> components;
    } cases[] = {
        {"Pacific/Kiritimati", 1735639200, 1735639200, 1735466400, 1735639200, 1735639200, {2025, 1, 1}},
        {"Etc/GMT+12", 1735732799, 1735646400, 1735560000, 1733054400, 1704110400, {2024, 12, 31}},
        {"Asia/Beirut", 1711846800, 1711836000, 1711317600, 1709244000, 1704060000, {2024, 3, 31}},
        {"Europe/Berlin", -1000000000, -1000083600, -1000602000, -1002070800, -1009846800, {1938, 4, 24}},
    };
    using D = DateUtilities;
    for (const auto& [zone, present, day, week, month, year, components] : cases) {
        SCOPED_TRACE(std::string(zone) + " " + std::to_string(present));
        live(zone, present);
        EXPECT_EQ((std::vector{D::startOfToday(), D::startOfWeek(), D::startOfMonth(), D::startOfYear()}),
                  (std::vector{day, week, month, year}));
        EXPECT_EQ((std::vector{D::endOfToday(), D::startOfYesterday(), D::endOfYesterday(), D::endOfWeek(),
                               D::startOfLastWeek(), D::endOfLastWeek()}),
                  (std::vector{day + 86'399, day - 86'400, day - 1, week + 604'799, week - 604'799, week}));
        EXPECT_EQ((std::vector{D::currentYear(), D::currentMonth(), D::currentDay()}), components);
    }
}

TEST_F(DateTest, MonthsAndYearsHaveTheirDays)
{
    EXPECT_EQ(DateUtilities::daysInMonth(Month::february, 2000), 29);
    EXPECT_EQ(DateUtilities::daysInMonth(Platform::Date(endless)), 0);
    EXPECT_EQ(DateUtilities::daysInYear(2023), 365);
    EXPECT_EQ(DateUtilities::endOfMonth(), 1'704'067'200 + 31 * 86'400 - 1);
    EXPECT_EQ(DateUtilities::endOfYear(), 1'704'067'200 + 366 * 86'400 - 1);

    live("Europe/Berlin", 1'714'521'600);  // 2024-05-01, 02:00
    const auto march = DateUtilities::dayRanges(2);
    ASSERT_EQ(march.size(), 31u);
    EXPECT_EQ(march[0], (DayRange{1'709'247'600, 1'709'247'600 + 86'399}));
    EXPECT_EQ(march[30].start, 1'709'247'600 + 30 * 86'400);  // an hour into the day: the clocks changed
    EXPECT_TRUE(DateUtilities::dayRanges(std::numeric_limits<int>::min()).empty());
    live("UTC", 1'711'843'200);  // 2024-03-31: a month back has no 31st
    EXPECT_EQ(DateUtilities::dayLabels(1).front() + DateUtilities::dayLabels(1).back(), "0129");
}

TEST_F(DateTest, TextsAreInTheUsersLanguage)
{
    live("America/New_York", 1'704'110'400, "de_DE.UTF-8");
    EXPECT_EQ(DateUtilities::weekdayName(Platform::Date::now()), "Montag");
    EXPECT_EQ(DateUtilities::weekdayNames().at(6) + DateUtilities::monthNames().at(2), "SonntagMärz");
    EXPECT_EQ(dateText(Platform::Date(-1)), "1969-12-31");
    EXPECT_EQ(DateUtilities::dateText(Platform::Date(std::nan("")), "EEEE"), "-");
    EXPECT_EQ(TimeUtilities::durationText(90, UnitDuration::minutes, UnitDuration::hours), "1,5 Std.");
}

TEST_F(DateTest, AgesTakeTheUnitThatFits)
{
    const double now = Platform::Date::now().timeIntervalSince1970();
    const auto texts = [now](std::initializer_list<double> ages) {
        std::string joined;
        for (const double age : ages) joined += DateUtilities::relativeTimeText(Platform::Date(now - age)) + "; ";
        return joined;
    };
    EXPECT_EQ(texts({-90, 59.9, 60, 119.9, 120}), "-90 s ago; 59 s ago; 1 min ago; 1 min ago; 2 min ago; ");
    EXPECT_EQ(texts({3'599, 3'600, 7'200, 86'399}), "59 min ago; 1 h ago; 2 h ago; 23 h ago; ");
    EXPECT_EQ(texts({86'400, 172'799, 172'800, std::nan("")}), "Yesterday; Yesterday; 2 d ago; -; ");
    EXPECT_EQ(texts({1e30, -endless}), "9223372036854775807 d ago; -9223372036854775808 s ago; ");
    live("UTC", now, "ja_JP.UTF-8");
    EXPECT_EQ(texts({300}), "5分前; ");
}

TEST_F(DateTest, RecentDaysAreNamedByTheWallClock)
{
    const std::tuple<const char*, double, const char*> cases[] = {
        {"Pacific/Kiritimati", 1'704'103'200, "Heute um 00:00"},  // 2024-01-02 there
        {"Pacific/Kiritimati", 1'704'103'199, "Gestern um 23:59"},
        {"Etc/GMT+12", 1'704'023'999, "30.12.23, 23:59"},
        {"America/New_York", 1'704'171'600, "02.01.24, 00:00"},
        {"UTC", endless, "-"}};
    for (const auto& [zone, timestamp, text] : cases) {
        live(zone, 1'704'110'400, "de_DE.UTF-8");
        EXPECT_EQ(DateUtilities::relativeDayText(timestamp), text) << zone;
    }
}

TEST_F(DateTest, TimestampsParseStrictlyOrGiveThePresent)
{
    live("UTC", 0);
    EXPECT_EQ(Date("2024-02-29 01:02:03"), Platform::Date(1'709'168'523));
    EXPECT_EQ(Date("2024-02-29 12:00:00"), Platform::Date(1'709'164'800));  // the hour after midnight
    for (const char* const text :
         {"2023-02-29 01:02:03", "2024-02-29 13:02:03", "2024-02-29 01:02:03 ", "2024-02-29", "", "\xff\xfe"}) {
        EXPECT_EQ(Date(text), Platform::Date(0)) << text;
    }
    live("Asia/Kathmandu", 0);
    EXPECT_EQ(Date("2024-02-29 12:00:00"), Platform::Date(1'709'164'800 - 20'700));
}

TEST_F(DateTest, ComponentsAndSumsFollowTheCalendar)
{
    live("Europe/Berlin", 0);
    EXPECT_EQ(Date(31, 3, 2024, 2, 30, 0), Platform::Date(1'711'848'600));   // skipped: 03:30
    EXPECT_EQ(Date(27, 10, 2024, 2, 30, 0), Platform::Date(1'729'989'000));  // repeated: the first
    EXPECT_EQ(Date(30, 14, 2023, 0, 0, 0), Date(1, 3, 2024, 0, 0, 0));
    const Platform::Date saturday = Date(30, 3, 2024, 12, 0, 0);
    EXPECT_EQ(addingDays(saturday, 1), Date(31, 3, 2024, 12, 0, 0));  // 23 hours later
    EXPECT_EQ(addingMonths(Date(31, 1, 2024, 0, 0, 0), 1), Date(29, 2, 2024, 0, 0, 0));
    EXPECT_EQ(addingYears(saturday, std::numeric_limits<int>::min()), saturday);
}
