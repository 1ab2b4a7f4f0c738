#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "Fennick/Constants.h"
#include "Fennick/Day.h"
#include "Fennick/FloatingPoint.h"
#include "Fennick/Month.h"

using namespace Fennick;

TEST(Rounded, FollowsTheProductInDoublePrecision)
{
    EXPECT_EQ(rounded(1.005, 2), 1.0);
    EXPECT_EQ(rounded(2.5, 0), 3.0);
    EXPECT_EQ(rounded(-2.345, 1), -2.3);
    EXPECT_EQ(rounded(1'250.0, -2), 1'300.0);
    EXPECT_EQ(rounded(0.125F, 2), 0.13F);
}

TEST(Rounded, ReachesAMultipleByEachRule)
{
    const struct {
        RoundingRule rule;
        double up;    // of 12.5 to a multiple of 5
        double down;  // of -12.5
    } cases[] = {
        {RoundingRule::toNearestOrAwayFromZero, 15, -15},
        {RoundingRule::toNearestOrEven, 10, -10},
        {RoundingRule::up, 15, -10},
        {RoundingRule::down, 10, -15},
        {RoundingRule::towardZero, 10, -10},
        {RoundingRule::awayFromZero, 15, -15},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(rounded(12.5, 5.0, given.rule), given.up);
        EXPECT_EQ(rounded(-12.5F, 5.0F, given.rule), static_cast<float>(given.down));
    }
    EXPECT_TRUE(std::isnan(rounded(1.0, 0.0, RoundingRule::up) - rounded(1.0, 0.0, RoundingRule::up)));
}

TEST(IsInvalid, HoldsForInfinitiesAndWhatIsNoNumber)
{
    EXPECT_TRUE(isInvalid(std::nan("")));
    EXPECT_TRUE(isInvalid(-std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(isInvalid(std::numeric_limits<double>::max()));
}

TEST(DaysAndMonths, ComeFromTheirNumbersOnly)
{
    EXPECT_EQ(dayFromRawValue(1), Day::sunday);
    EXPECT_EQ(dayFromRawValue(7), Day::saturday);
    EXPECT_EQ(dayFromRawValue(0), std::nullopt);
    EXPECT_EQ(dayFromRawValue(8), std::nullopt);
    EXPECT_EQ(rawValue(allDays.front()), 2);
    EXPECT_EQ(monthFromRawValue(12), Month::december);
    EXPECT_EQ(monthFromRawValue(0), std::nullopt);
    EXPECT_EQ(monthFromRawValue(13), std::nullopt);
    EXPECT_EQ(rawValue(allMonths.back()), 12);
}

TEST(UnitSizes, StepByTheirBase)
{
    EXPECT_EQ(Constants::exbibyte(), 1'152'921'504'606'846'976);
    EXPECT_EQ(Constants::exbibyte(), Constants::bytesPerPebibyte * Constants::kibibyte());
    EXPECT_EQ(Constants::mebibyte() * Constants::gibibyte(), Constants::bytesPerPebibyte);
    EXPECT_EQ(Constants::exa(), 1'000'000'000'000'000'000);
    EXPECT_EQ(Constants::mega() * Constants::giga(), Constants::peta());
}
