#include <cmath>
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
        {"de_DE.UTF-8", "-1234567,5", "-1.234.567", ","},
        {"en_IN.UTF-8", "-1234567.5", "-12,34,567", "."},
        {"C", "-1234567.5", "-1234567", "."},
        {"fa_IR.UTF-8", "‎−۱۲۳۴۵۶۷٫۵", "‎−۱٬۲۳۴٬۵۶۷", "٫"},
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
    EXPECT_EQ(DecimalFormatter::string(0.25F, 1) + " " + DecimalFormatter::string(-HUGE_VAL, 1), "0.2 -∞");
    EXPECT_EQ(DecimalFormatter::string(1.0, 1 << 20), "-");
    EXPECT_EQ(groupedText(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
    EXPECT_EQ(oneDecimalText(2.99F) + " " + twoDecimalsText(-1.5F) + " " + fiveDecimalsText(0), "2.9 -1.50 0.00000");
}
