#include "platform/text/internal/NumberFormatter.h"

#include <cmath>
#include <tuple>
#include <utility>

#include <unicode/dcfmtsym.h>
#include <unicode/numberformatter.h>

namespace Platform {

namespace {

using icu::number::FormattedNumber;
using icu::number::LocalizedNumberFormatter;
using icu::number::Precision;

LocalizedNumberFormatter localized(const icu::Locale& locale, const NumberStyle& style)
{
    return icu::number::NumberFormatter::withLocale(locale)
        .precision(Precision::minMaxFraction(style.minimumFractionDigits, style.maximumFractionDigits))
        .roundingMode(style.rounding == Rounding::towardZero ? UNUM_ROUND_DOWN : UNUM_ROUND_HALFEVEN)
        .grouping(style.isGrouped ? UNUM_GROUPING_AUTO : UNUM_GROUPING_OFF);
}

FormattedNumber formatted(const LocalizedNumberFormatter& formatter, const Number& number, UErrorCode& status)
{
    if (number.isFloatingPoint()) {
        const double value = number.doubleValue();
        return formatter.formatDouble(std::isnan(value) ? std::abs(value) : value, status);  // no sign where no number
    }
    if (number.isUnsigned64()) return formatter.formatDecimal(std::to_string(number.uint64Value()), status);
    return formatter.formatInt(number.int64Value(), status);
}

std::optional<std::string> write(const LocalizedNumberFormatter& formatter, const Number& number)
{
    UErrorCode status = U_ZERO_ERROR;
    const FormattedNumber result = formatted(formatter, number, status);
    const icu::UnicodeString text = result.toString(status);
    if (U_FAILURE(status)) return std::nullopt;
    std::string utf8;
    return text.toUTF8String(utf8);
}

// What stands before and after `core` in `text`; absent when it is not there.
std::optional<std::pair<std::string, std::string>> around(const std::optional<std::string>& text,
                                                          const std::string& core)
{
    const std::size_t at = text ? text->find(core) : std::string::npos;
    if (at == std::string::npos || core.empty()) return std::nullopt;
    return std::pair(text->substr(0, at), text->substr(at + core.size()));
}

std::optional<NumberSymbols> digitsOf(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols locals(locale, status);
    if (U_FAILURE(status)) return std::nullopt;
    NumberSymbols symbols;
    for (int digit = 0; digit < 10; ++digit) locals.getConstDigitSymbol(digit).toUTF8String(symbols.digits);
    symbols.digitSize = symbols.digits.size() / 10;
    const bool isUniform = symbols.digitSize <= 4 && symbols.digits.size() % 10 == 0;
    if (!isUniform) return std::nullopt;
    for (std::size_t pair = 0; symbols.digitSize == 1 && pair < 100; ++pair) {
        symbols.pairs += symbols.digits[pair / 10];
        symbols.pairs += symbols.digits[pair % 10];
    }
    return symbols;
}

}  // namespace

struct NumberFormatter::Library {
    icu::Locale locale;
    LocalizedNumberFormatter formatter;
};

NumberFormatter::NumberFormatter(const std::string& localeName, const NumberStyle& style) : style_(style)
{
    const icu::Locale locale(localeName.c_str());
    library_ = std::make_unique<Library>(Library{locale, localized(locale, style)});
    if (!style.isGrouped) symbols_ = readSymbols();
}

NumberFormatter::~NumberFormatter() = default;

std::optional<std::string> NumberFormatter::libraryText(const Number& number) const
{
    return write(library_->formatter, number);
}

// The signs and the separator are taken from what the library itself writes, so they cannot differ from it.
std::optional<NumberSymbols> NumberFormatter::readSymbols() const
{
    std::optional<NumberSymbols> symbols = digitsOf(library_->locale);
    if (!symbols) return std::nullopt;
    const LocalizedNumberFormatter whole = localized(library_->locale, {});
    const LocalizedNumberFormatter tenths =
        localized(library_->locale, {.minimumFractionDigits = 1, .maximumFractionDigits = 1});
    const auto positive = around(write(whole, 1), symbols->digit(1));
    const auto negative = around(write(whole, -1), symbols->digit(1));
    const auto fraction = around(write(tenths, 1.5), symbols->digit(1));
    if (!positive || !negative || !fraction) return std::nullopt;
    const auto separator = around(fraction->second, symbols->digit(5));
    if (!separator || separator->first.size() > 16) return std::nullopt;
    std::tie(symbols->prefix, symbols->suffix) = *positive;
    std::tie(symbols->negativePrefix, symbols->negativeSuffix) = *negative;
    symbols->separator = separator->first;
    return symbols;
}

std::optional<ScaledNumber> NumberFormatter::arithmeticValue(const Number& number) const
{
    if (!symbols_) return std::nullopt;
    if (number.isFloatingPoint()) return scaled(number.doubleValue(), style_.maximumFractionDigits, style_.rounding);
    if (style_.minimumFractionDigits > 0) return std::nullopt;
    const bool isNegative = !number.isUnsigned64() && number.int64Value() < 0;
    return ScaledNumber{isNegative ? 0 - number.uint64Value() : number.uint64Value(), isNegative};
}

std::optional<std::string> NumberFormatter::text(const Number& number) const
{
    const std::optional<ScaledNumber> value = arithmeticValue(number);
    if (!value) return libraryText(number);
    if (!number.isFloatingPoint()) return plainText(*value, *symbols_, 0, 0);
    return plainText(*value, *symbols_, style_.maximumFractionDigits, style_.minimumFractionDigits);
}

}  // namespace Platform
