#include <random>
#include <string>
#include <vector>

#include <glib.h>
#include <unicode/numberformatter.h>

#include "Fennick/datastore/NumberTexts.h"
#include "Fennick/datastore/Value.h"
#include "bench/datastore/Measure.h"

namespace Bench {

namespace {

using icu::number::LocalizedNumberFormatter;
using icu::number::Precision;

LocalizedNumberFormatter reused(UNumberFormatRoundingMode mode, int least)
{
    return icu::number::NumberFormatter::withLocale(icu::Locale("en_US_POSIX"))
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

// Calls the body with one number after the other.
template <typename Body>
double over(const std::vector<double>& numbers, const Body& body)
{
    std::size_t at = 0;
    return nanoseconds([&] { benchmark::DoNotOptimize(body(numbers[at++ % numbers.size()])); }, 20'000);
}

}  // namespace

void texts()
{
    std::mt19937_64 random(1);
    std::vector<double> numbers(4096);
    for (double& number : numbers) number = static_cast<double>(random() % 100'000'000) / 997.0;

    const auto cutting = reused(UNUM_ROUND_DOWN, 2);
    row("fixedDecimalsText", "ICU, formatter reused",
        over(numbers, [](double number) { return Fennick::fixedDecimalsText(2, number); }),
        over(numbers, [&](double number) { return written(cutting, number); }), "8");

    Fennick::Value value(Fennick::IdentifierCategory::percentage, true, 2);
    const auto rounding = reused(UNUM_ROUND_HALFEVEN, 0);
    const auto percentage = [&](double number) {
        value.set(number);
        return value.description();
    };
    row("percentage text", "ICU, formatter reused", over(numbers, percentage),
        over(numbers, [&](double number) { return written(rounding, number) + " %"; }), "8");

    const auto formatSize = [](double number) {
        gchar* text = g_format_size(static_cast<guint64>(number * 1e6));
        std::string copy(text);
        g_free(text);
        return copy;
    };
    row("byteCountText", "g_format_size",
        over(numbers, [](double number) { return Fennick::byteCountText(static_cast<std::uint64_t>(number * 1e6)); }),
        over(numbers, formatSize), "12");
}

}  // namespace Bench
