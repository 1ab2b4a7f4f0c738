#include <gtest/gtest.h>

#include "Fennick/FloatingPoint.h"

using namespace Fennick;

TEST(Rounded, FollowsTheProductOrTheRule)
{
    EXPECT_EQ(rounded(1.005, 2), 1.0);
    EXPECT_EQ(rounded(1'250.0, -2), 1'300.0);
    EXPECT_EQ(rounded(0.125F, 2), 0.13F);
    using enum RoundingRule;
    // Of 12.5 and -12.5 to a multiple of 5.
    const std::tuple<RoundingRule, double, float> cases[] = {{toNearestOrAwayFromZero, 15, -15},
                                                             {toNearestOrEven, 10, -10},
                                                             {up, 15, -10},
                                                             {down, 10, -15},
                                                             {towardZero, 10, -10},
                                                             {awayFromZero, 15, -15}};
    for (const auto& [rule, above, below] : cases) {
        EXPECT_EQ(rounded(12.5, 5.0, rule), above);
        EXPECT_EQ(rounded(-12.5F, 5.0F, rule), below);
        EXPECT_EQ(rounded(Platform::CGFloat(12.5), Platform::CGFloat(5), rule), above);
    }
    EXPECT_TRUE(isInvalid(rounded(1.0, 0.0, up)));
}
