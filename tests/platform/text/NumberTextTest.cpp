#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "platform/text/Locale.h"
#include "platform/text/internal/NumberFormatter.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/Torture.h"

using namespace Platform;

namespace {

NumberStyle fixed(std::int16_t digits)
{
    return {digits, digits, Rounding::towardZero, false};
}

NumberStyle upTo(std::int16_t digits)
{
    return {0, digits, Rounding::halfEven, false};
}

// Numbers of every size, and those that sit on or beside a decimal, a half and a whole.
double randomNumber(std::mt19937_64& random)
{
    const double wide = std::ldexp(static_cast<double>(random()), -static_cast<int>(random() % 120));
    const double decimal = static_cast<double>(random() % 10'000'000) / std::pow(10.0, static_cast<int>(random() % 8));
    double number = random() % 2 ? wide : decimal;
    if (random() % 4 == 0) number = std::nextafter(number, random() % 2 ? 1e30 : -1e30);
    return random() % 2 ? number : -number;
}

}  // namespace

TEST(CurrentLocale, ComesFromTheFirstVariableThatIsSetAndNotEmpty)
{
    const std::array<const char*, 4> rows[] = {{"de_DE.UTF-8", "fr_FR", "hi_IN", "de_DE"},
                                               {"", "fr_FR@euro", "hi_IN", "fr_FR"},
                                               {"", "", "hi_IN.UTF-8", "hi_IN"},
                                               {"", "", "", "en_US_POSIX"},
                                               {"C.UTF-8", "fr_FR", "fr_FR", "en_US_POSIX"}};
    for (const auto& [all, messages, lang, expected] : rows) {
        Tests::ReplacedEnvironment environment;
        environment->set("LC_ALL", all);
        environment->set("LC_MESSAGES", messages);
        environment->set("LANG", lang);
        EXPECT_EQ(currentLocaleName(), expected);
    }
}

TEST(NumberText, ArithmeticWritesWhatTheLibraryWrites)
{
    std::mt19937_64 random(Tests::seedOf(20240229));
    const long numbers = Tests::atLength("numbers of each kind", 1500);
    for (const char* locale : {"en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN", "en_US_POSIX", "sv_SE", "fa_IR"}) {
        for (const NumberStyle& style : {fixed(0), fixed(1), fixed(2), fixed(6), fixed(14), upTo(1), upTo(2), upTo(5),
                                         NumberStyle{1, 3, Rounding::halfEven, false}}) {
            const NumberFormatter formatter(locale, style);
            EXPECT_TRUE(scaled(1234.567, style.maximumFractionDigits, style.rounding) || style == fixed(14));
            for (int count = 0; count < numbers; ++count) {
                const double number = randomNumber(random);
                ASSERT_EQ(formatter.text(number), formatter.libraryText(number)) << locale << " " << number;
            }
            for (const Number& number : {Number(-7), Number(0), Number(~0UL), Number(-0.0), Number(true)})
                ASSERT_EQ(formatter.text(number), formatter.libraryText(number)) << locale;
        }
    }
}
