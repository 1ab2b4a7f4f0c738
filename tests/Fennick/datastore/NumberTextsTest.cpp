#include <cmath>
#include <cstdio>
#include <random>

#include <gtest/gtest.h>

#include "Fennick/datastore/NumberTexts.h"
#include "tests/support/Torture.h"

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

TEST(ByteCountText, RoundsAsTheFormatsOfCDo)
{
    EXPECT_EQ(byteCountText(1100), "1.07 KB");
    for (const std::uint64_t bytes : {0ULL, 1023ULL, 1024ULL, 1048575ULL, 1572864ULL, 10737418240ULL, ~0ULL}) {
        EXPECT_EQ(byteCountText(bytes), formattedByteCount(bytes));
    }
    std::mt19937_64 random(Tests::seedOf(42));
    for (long count = Tests::atLength("numbers", 200'000); count > 0; --count) {
        std::uint64_t bytes = random() >> (random() % 64);
        if (count % 3 == 0) bytes &= ~((1ULL << (random() % 58)) - 1);  // ties
        ASSERT_EQ(byteCountText(bytes), formattedByteCount(bytes)) << bytes;
    }
}
