#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Fennick/Version.h"

using Fennick::Version;

TEST(VersionOrder, RunsFromTheFirstToTheLast)
{
    const std::string nines(100'000, '9');
    const std::vector<std::string> ascending = {
        "",
        "-1",
        ".5",
        "0",
        "0.9",
        "1",
        "1.",
        "1.0",
        "1.0.0",
        "1.2",
        "1.2-rc",
        "1.2a",
        "1.2b",
        "1.9",
        "1.10",
        "1.10.1",
        "2",
        "2 beta",
        "9.9",
        "10.0",
        "99999999999999999998",
        "99999999999999999999",
        nines,
        "1" + std::string(100'000, '0'),
        "A",
        "a",
        "a1",
        "a2b",
        "a10a",
        "z\xc3\xa9",
        "z\xef\xbc\x91",
        "z\xf0\x9f\x98\x80",
    };
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            const Version a(ascending[i]);
            const Version b(ascending[j]);
            const std::string pair = ascending[i].substr(0, 30) + " and " + ascending[j].substr(0, 30);
            EXPECT_EQ(a < b, i < j) << pair;
            EXPECT_EQ(a > b, i > j) << pair;
            EXPECT_EQ(a <= b, i <= j) << pair;
            EXPECT_EQ(a >= b, i >= j) << pair;
            EXPECT_EQ(a == b, i == j) << pair;
        }
    }
}

TEST(VersionOrder, PassesOverLeadingZeros)
{
    EXPECT_EQ(Version("1.01"), Version("1.1"));
    EXPECT_EQ(Version("a000b"), Version("a0b"));
    EXPECT_LT(Version("1.009"), Version("1.10"));
    EXPECT_LT(Version("1.010.1"), Version("1.10.2"));
    EXPECT_GT(Version("1.00b"), Version("1.0a"));
}

TEST(VersionText, StaysAsGiven)
{
    EXPECT_EQ(Version(" 3.0 beta").string(), " 3.0 beta");
    EXPECT_EQ(Version("3.0 beta").description(), "3.0 beta");
}
