#include <iterator>

#include <gtest/gtest.h>

#include "Fennick/Version.h"

using Fennick::Version;

TEST(Version, OrdersFromTheFirstToTheLast)
{
    const char* const ascending[] = {"",       "-1",   ".5",   "0",   "0.9",  "1",      "1.", "1.0",    "1.0.0", "1.2",
                                     "1.2-rc", "1.2a", "1.2b", "1.9", "1.10", "1.10.1", "2",  "2 beta", "9.9",   "10.0",
                                     "A",      "a",    "a1",   "a2b", "a10a", "é",      "１", "😀",      "\xff"};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            const Version a(ascending[i]);
            const Version b(ascending[j]);
            EXPECT_EQ(std::vector({a<b, a> b, a <= b, a >= b, a == b}),
                      std::vector({i<j, i> j, i <= j, i >= j, i == j}))
                << a.string() << " and " << b.string();
        }
    }
    EXPECT_LT(Version("99999999999999999998"), Version("99999999999999999999"));
    EXPECT_LT(Version(std::string(100'000, '9')), Version("1" + std::string(100'000, '0')));
}

TEST(Version, PassesOverLeadingZerosAndKeepsItsText)
{
    EXPECT_EQ(Version("1.01"), Version("1.1"));
    EXPECT_LT(Version("1.010.1"), Version("1.10.2"));
    EXPECT_GT(Version("1.00b"), Version("1.0a"));
    EXPECT_EQ(Version("3.0 beta").description(), "3.0 beta");
}
