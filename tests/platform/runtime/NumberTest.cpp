#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/runtime/Number.h"

using Platform::CGFloat;
using Platform::Number;

namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::uint64_t highestUnsigned = std::numeric_limits<std::uint64_t>::max();

}  // namespace

TEST(Number, RemembersItsTypeAndReadsBackWhole)
{
    const struct {
        const char* name;
        Number number;
        char typeCode;
        std::int64_t asSigned;
        std::uint64_t asUnsigned;
    } readings[] = {
        {"bool", true, 'c', 1, 1},
        {"Int8", static_cast<signed char>(-5), 'c', -5, highestUnsigned - 4},
        {"Int16", static_cast<short>(300), 's', 300, 300},
        {"Int32", -1, 'i', -1, highestUnsigned},
        {"Int", lowest, 'q', lowest, 1ULL << 63},
        {"UInt8", static_cast<unsigned char>(200), 'C', 200, 200},
        {"UInt16", static_cast<unsigned short>(65535), 'S', 65535, 65535},
        {"UInt32", 4294967295U, 'I', 4294967295, 4294967295},
        {"UInt", highestUnsigned, 'Q', -1, highestUnsigned},
        {"Float", -2.5F, 'f', -2, highestUnsigned - 1},
        {"Double toward zero", 2.999, 'd', 2, 2},
        {"not a number", std::nan(""), 'd', 0, 0},
        {"infinity saturates", HUGE_VAL, 'd', highest, highestUnsigned},
        {"2^63", 9223372036854775808.0, 'd', highest, 1ULL << 63},
        {"below all", -1e30, 'd', lowest, 1ULL << 63},
        {"CGFloat", CGFloat(0.5), 'd', 0, 0},
    };
    for (const auto& reading : readings) {
        SCOPED_TRACE(reading.name);
        EXPECT_EQ(reading.number.typeCode(), reading.typeCode);
        EXPECT_EQ(reading.number.int64Value(), reading.asSigned);
        EXPECT_EQ(reading.number.uint64Value(), reading.asUnsigned);
    }
}

TEST(Number, NarrowReadingsWrapFloatsRoundAndEqualMeansEveryBit)
{
    EXPECT_EQ(Number(300).as<unsigned char>(), 44);
    EXPECT_EQ(Number(1e20).as<int>(), -1);  // saturated to 64 bits, then the low half
    EXPECT_EQ(Number(highestUnsigned).doubleValue(), 18446744073709551616.0);
    EXPECT_EQ(Number(0.1).as<CGFloat>().value, static_cast<double>(0.1F));
    EXPECT_EQ(Number(1), Number(1.0));
    EXPECT_EQ(Number(true), Number(1U));
    EXPECT_NE(Number(highestUnsigned), Number(-1));
    EXPECT_NE(Number(9007199254740993LL), Number(9007199254740992.0));
}
