#include <limits>

#include <gtest/gtest.h>

#include "Fennick/DecimalFormatter.h"
#include "Fennick/FloatingPoint.h"
#include "tests/fakes/FakeEnvironment.h"

using namespace Fennick;

TEST(NumberTexts, FollowTheLocale)
{
    const struct {
        const char *locale, *plain, *grouped, *separator;
    } cases[] = {
        {"en_US.UTF-8", "-1234567.5", "-1,234,567", "."},
        {"de_DE.UTF-8", "-1234567,5", "-1.234.567", ","},
        {"en_IN.UTF-8", "-1234567.5", "-12,34,567", "."},
        {"C", "-1234567.5", "-1234567", "."},
    };
    for (const auto& given : cases) {
        Tests::ReplacedEnvironment environment;
        environment->set("LANG", given.locale);
        EXPECT_EQ(DecimalFormatter::string(-1234567.5, 3), given.plain);
        EXPECT_EQ(groupedText(-1'234'567), given.grouped);
        EXPECT_EQ(decimalSeparator(), given.separator);
    }
}

TEST(NumberTexts, KeepEveryTypeWhole)
{
    Tests::ReplacedEnvironment environment;
    environment->set("LANG", "en_US");
    EXPECT_EQ(DecimalFormatter::string(std::numeric_limits<unsigned long>::max()), "18446744073709551615");
    EXPECT_EQ(DecimalFormatter::string(std::numeric_limits<long long>::min(), 2), "-9223372036854775808");
    EXPECT_EQ(DecimalFormatter::string(0.25F, 1), "0.2");
    EXPECT_EQ(DecimalFormatter::string(1.0, -4), "1");
    EXPECT_EQ(DecimalFormatter::string(1.0, 1 << 20), "-");
    EXPECT_EQ(groupedText(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
    EXPECT_EQ(oneDecimalText(2.99F) + " " + twoDecimalsText(-1.5F) + " " + threeDecimalsText(0), "2.9 -1.50 0.000");
    EXPECT_EQ(fourDecimalsText(0.5F) + " " + fiveDecimalsText(0.25F), "0.5000 0.25000");
}
