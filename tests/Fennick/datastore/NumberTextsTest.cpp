#include <cmath>
#include <cstdio>
#include <random>
#include <utility>

#include <gtest/gtest.h>

#include "Fennick/datastore/NumberTexts.h"

using namespace Fennick;

namespace {

// The text as the C library's formats write it.
std::string formattedByteCount(std::uint64_t bytes)
{
    if (bytes < 1024) return std::to_string(bytes) + " B";
    const char* units[] = {"KB", "MB", "GB", "TB", "PB", "EB"};
    int unit = 0;
    while (unit < 5 && bytes >> (10 * unit + 20) != 0) ++unit;
    char text[64];
    std::snprintf(text, sizeof text, unit == 1 ? "%.1f" : "%.2f",
                  std::ldexp(static_cast<double>(bytes), -10 * unit - 10));
    std::string number = text;
    while (number.back() == '0') number.pop_back();
    if (number.back() == '.') number.pop_back();
    return number + " " + units[unit];
}

}  // namespace

TEST(ByteCountText, ChoosesTheUnitAndDropsTrailingZeros)
{
    struct Row {
        std::uint64_t bytes;
        const char* expected;
    };
    for (const auto& [bytes, expected] : {Row{0, "0 B"}, Row{100, "100 B"}, Row{1023, "1023 B"}, Row{1024, "1 KB"},
                                          Row{1100, "1.07 KB"}, Row{1536, "1.5 KB"}, Row{1048575, "1024 KB"},
                                          Row{1572864, "1.5 MB"}, Row{10737418240, "10 GB"}, Row{~0ULL, "16 EB"}}) {
        EXPECT_EQ(byteCountText(bytes), expected);
    }
}

TEST(ByteCountText, RoundsAsTheFormatsOfCDo)
{
    std::mt19937_64 random(42);
    for (int count = 0; count < 200'000; ++count) {
        std::uint64_t bytes = random() >> (random() % 64);
        if (count % 3 == 0) bytes &= ~((1ULL << (random() % 58)) - 1);  // ties
        ASSERT_EQ(byteCountText(bytes), formattedByteCount(bytes)) << bytes;
    }
}

TEST(FixedDecimalsText, CutsTowardZero)
{
    EXPECT_EQ(fixedDecimalsText(2, 2.999), "2.99");
    EXPECT_EQ(fixedDecimalsText(2, 5), "5.00");
    EXPECT_EQ(fixedDecimalsText(-3, 1.9), "1");
    EXPECT_EQ(fixedDecimalsText(1000, 1.5), "-");
}
