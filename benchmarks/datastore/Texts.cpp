#include <cmath>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include <glib.h>
#include <unicode/numberformatter.h>

#include "Fennick/datastore/NumberTexts.h"
#include "Fennick/datastore/Value.h"
#include "benchmarks/datastore/Measure.h"
#include "tests/fakes/FakeEnvironment.h"

namespace Bench {

namespace {

using icu::number::LocalizedNumberFormatter;
using icu::number::Precision;

LocalizedNumberFormatter reused(UNumberFormatRoundingMode mode, int least, const char* locale = "en_US_POSIX")
{
    return icu::number::NumberFormatter::withLocale(icu::Locale(locale))
        .precision(Precision::minMaxFraction(least, 2))
        .roundingMode(mode)
        .grouping(UNUM_GROUPING_OFF);
}

std::string written(const LocalizedNumberFormatter& formatter, double number)
{
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    return formatter.formatDouble(number, status).toString(status).toUTF8String(text);
}

// Calls the body with one element after the other.
template <typename Elements, typename Body>
Contestant over(const char* name, const Elements& elements, Body body)
{
    return {name, [&elements, body, at = std::size_t{0}]() mutable { keep(body(elements[at++ % elements.size()])); }};
}

// How many of a million random numbers read otherwise than the library writes them, in the current locale.
template <typename Ours>
int differences(const LocalizedNumberFormatter& formatter, const Ours& ours)
{
    std::mt19937_64 random(3);
    int differing = 0;
    for (int count = 0; count < 1'000'000; ++count) {
        double number = static_cast<double>(static_cast<std::int64_t>(random() % 2'000'000'001) - 1'000'000'000);
        number /= std::pow(10.0, static_cast<int>(random() % 10));
        if (random() % 2) number = std::nextafter(number, 0);
        differing += ours(number) != written(formatter, number);
    }
    return differing;
}

}  // namespace

int textProof()
{
    int all = 0;
    for (const char* name : {"en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN", "en_US_POSIX"}) {
        Tests::ReplacedEnvironment environment;
        environment->set("LC_ALL", name);
        const int fixed = differences(reused(UNUM_ROUND_DOWN, 2, name),
                                      [](double number) { return Fennick::fixedDecimalsText(2, number); });
        Fennick::Value value(Fennick::IdentifierCategory::percentage, true, 2);
        const int percentages = differences(reused(UNUM_ROUND_HALFEVEN, 0, name), [&](double number) {
            value.set(number);
            const std::string text = value.description();
            return text.substr(0, text.size() - 2);
        });
        std::printf("%-12s of a million each: %d fixed decimals, %d percentages differ\n", name, fixed, percentages);
        all += fixed + percentages;
    }
    return all;
}

void texts()
{
    std::mt19937_64 random(1);
    std::vector<double> numbers(512);
    for (double& number : numbers) number = static_cast<double>(random() % 100'000'000) / 997.0;

    const auto cutting = reused(UNUM_ROUND_DOWN, 2);
    compare("fixedDecimalsText",
            {over("ours", numbers, [](double number) { return Fennick::fixedDecimalsText(2, number); }),
             over("ICU formatter reused", numbers, [&](double number) { return written(cutting, number); })});

    std::deque<Fennick::Value> values;
    for (const double number : numbers) {
        values.emplace_back(Fennick::IdentifierCategory::percentage, true, 2).set(number);
    }
    const auto rounding = reused(UNUM_ROUND_HALFEVEN, 0);
    compare("percentage text",
            {over("ours", values, [](const auto& each) { return each.description(); }),
             over("ICU formatter reused", numbers, [&](double number) { return written(rounding, number) + " %"; })});

    const auto formatSize = [](double number) {
        gchar* text = g_format_size(static_cast<guint64>(number * 1e6));
        std::string copy(text);
        g_free(text);
        return copy;
    };
    compare("byteCountText",
            {over("ours", numbers,
                  [](double number) { return Fennick::byteCountText(static_cast<std::uint64_t>(number * 1e6)); }),
             over("g_format_size", numbers, formatSize)});
}

}  // namespace Bench
