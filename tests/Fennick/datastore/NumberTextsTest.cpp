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
    for (const auto& [bytes, expected] :
         std::initializer_list<std::pair<std::uint64_t, const char*>>{{0, "0 B"},
                                                                      {100, "100 B"},
                                                                      {1000, "1000 B"},
                                                                      {1023, "1023 B"},
                                                                      {1024, "1 KB"},
                                                                      {1100, "1.07 KB"},
                                                                      {1029, "1 KB"},
                                                                      {1536, "1.5 KB"},
                                                                      {1048575, "1024 KB"},
                                                                      {1048576, "1 MB"},
                                                                      {1572864, "1.5 MB"},
                                                                      {10737418240, "10 GB"},
                                                                      {1ULL << 40, "1 TB"},
                                                                      {1ULL << 50, "1 PB"},
                                                                      {1ULL << 60, "1 EB"},
                                                                      {~0ULL, "16 EB"}}) {
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
