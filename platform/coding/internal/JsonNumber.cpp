#include "platform/coding/internal/JsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace Platform {

namespace {

constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int largestExactPower = 22;
constexpr std::uint64_t largestExactWhole = 1ull << 53;

// What the token's grammar says, before any conversion.
struct Token {
    std::string_view text;
    std::string_view whole;     // digits before the point
    std::string_view fraction;  // digits behind it
    int exponent = 0;           // as written, held within +-100000
    bool isNegative = false;
    bool hasExponent = false;
};

std::string_view takeDigits(std::string_view& rest)
{
    std::size_t count = 0;
    while (count < rest.size() && rest[count] >= '0' && rest[count] <= '9') ++count;
    const std::string_view digits = rest.substr(0, count);
    rest.remove_prefix(count);
    return digits;
}

bool takeExponent(std::string_view& rest, Token& token)
{
    rest.remove_prefix(1);
    const bool isNegative = rest.starts_with('-');
    if (isNegative || rest.starts_with('+')) rest.remove_prefix(1);
    const std::string_view digits = takeDigits(rest);
    for (const char digit : digits) token.exponent = std::min(token.exponent * 10 + (digit - '0'), 100000);
    if (isNegative) token.exponent = -token.exponent;
    token.hasExponent = true;
    return !digits.empty();
}

// RFC 8259, section 6.
std::optional<Token> scan(std::string_view text)
{
    Token token;
    token.text = text;
    std::string_view rest = text;
    token.isNegative = rest.starts_with('-');
    if (token.isNegative) rest.remove_prefix(1);
    token.whole = takeDigits(rest);
    if (token.whole.empty() || (token.whole.size() > 1 && token.whole.front() == '0')) return std::nullopt;
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        token.fraction = takeDigits(rest);
        if (token.fraction.empty()) return std::nullopt;
    }
    if ((rest.starts_with('e') || rest.starts_with('E')) && !takeExponent(rest, token)) return std::nullopt;
    if (!rest.empty()) return std::nullopt;
    return token;
}

// Up to 19 digits always fit.
std::uint64_t valueOf(std::string_view digits, std::uint64_t value = 0)
{
    for (const char digit : digits) value = value * 10 + static_cast<std::uint64_t>(digit - '0');
    return value;
}

// digits * 10^exponent, when that is whole and below 2^64.
std::optional<std::uint64_t> wholeValue(std::string_view digits, int exponent)
{
    const std::size_t significant = digits.find_last_not_of('0') + 1;
    if (significant == 0) return 0;
    exponent += static_cast<int>(std::min<std::size_t>(digits.size() - significant, 1000000));
    if (exponent < 0) return std::nullopt;
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + significant, value);
    if (error != std::errc()) return std::nullopt;
    for (; exponent > 0; --exponent) {
        if (__builtin_mul_overflow(value, std::uint64_t{10}, &value)) return std::nullopt;
    }
    return value;
}

std::optional<JsonNumber> integerOf(const Token& token)
{
    constexpr std::uint64_t highest = std::numeric_limits<std::int64_t>::max();
    const bool isShort = token.whole.size() <= 19 && !token.hasExponent;
    const auto magnitude = isShort ? valueOf(token.whole) : wholeValue(token.whole, token.exponent);
    if (!magnitude) return std::nullopt;
    if (token.isNegative) {
        if (*magnitude > highest + 1) return std::nullopt;
        return JsonNumber::ofInteger(static_cast<std::int64_t>(-*magnitude));
    }
    if (*magnitude > highest) return JsonNumber::ofUnsigned(*magnitude);
    return JsonNumber::ofInteger(static_cast<std::int64_t>(*magnitude));
}

// Whole numbers below 2^53 and powers of ten up to 10^22 are exact doubles, so
// one multiplication or division of them rounds like the true quotient.
std::optional<double> exactQuotient(const Token& token)
{
    if (token.whole.size() + token.fraction.size() > 19) return std::nullopt;
    const std::uint64_t digits = valueOf(token.fraction, valueOf(token.whole));
    const int exponent = token.exponent - static_cast<int>(token.fraction.size());
    if (digits > largestExactWhole || std::abs(exponent) > largestExactPower) return std::nullopt;
    const auto whole = static_cast<double>(digits);
    const double value = exponent < 0 ? whole / powersOfTen[-exponent] : whole * powersOfTen[exponent];
    return token.isNegative ? -value : value;
}

JsonNumber realOf(const Token& token)
{
    if (const auto value = exactQuotient(token)) return JsonNumber::ofReal(*value);
    double value = 0;
    const char* end = token.text.data() + token.text.size();
    if (std::from_chars(token.text.data(), end, value).ec == std::errc()) return JsonNumber::ofReal(value);
    // Out of range both ways: what is too small for a double rounds to 0.
    const std::size_t leading = token.whole == "0" ? token.fraction.find_first_not_of('0') : 0;
    const auto magnitude =
        token.whole == "0" ? -static_cast<long long>(leading) : static_cast<long long>(token.whole.size());
    if (magnitude + token.exponent > 0) return {.kind = JsonNumber::Kind::tooLarge, .real = 0};
    return JsonNumber::ofReal(token.isNegative ? -0.0 : 0.0);
}

// Decimals up to 15 digits name their double uniquely, so the first count of
// decimals that reads back exactly is the shortest text.
char* writeFewDecimals(double magnitude, char* to)
{
    constexpr double largest = 1e15;
    constexpr int mostDecimals = 8;
    for (int decimals = 1; decimals <= mostDecimals; ++decimals) {
        const double scaled = magnitude * powersOfTen[decimals];
        if (!(scaled < largest)) return nullptr;
        const auto digits = static_cast<std::int64_t>(scaled + 0.5);  // NOLINT(bugprone-incorrect-roundings)
        const auto rounded = static_cast<double>(digits);
        // The product is off by half a unit at most; the division proves the rest.
        if (std::fabs(scaled - rounded) > scaled * 1e-15) continue;
        if (rounded / powersOfTen[decimals] != magnitude) continue;
        const auto whole = static_cast<std::int64_t>(magnitude);
        const auto power = static_cast<std::int64_t>(powersOfTen[decimals]);
        to = std::to_chars(to, to + 20, static_cast<std::uint64_t>(whole)).ptr;
        *to = '.';
        auto fraction = static_cast<std::uint64_t>(digits - whole * power);
        for (int place = decimals; place > 0; --place, fraction /= 10)
            to[place] = static_cast<char>('0' + fraction % 10);
        return to + decimals + 1;
    }
    return nullptr;
}

// Puts ".0" where the text from `start` to `end` has no fraction.
char* withFraction(char* start, char* end)
{
    if (std::find(start, end, '.') != end) return end;
    char* exponent = std::find(start, end, 'e');
    std::memmove(exponent + 2, exponent, static_cast<std::size_t>(end - exponent));
    std::memcpy(exponent, ".0", 2);  // NOLINT(bugprone-not-null-terminated-result)
    return end + 2;
}

// Most numbers: up to 18 digits, perhaps a point among them, no exponent.
std::optional<JsonNumber> plainNumber(std::string_view text)
{
    constexpr std::size_t mostDigits = 18;
    const char* at = text.data();
    const char* const end = at + text.size();
    const bool isNegative = *at == '-';
    at += isNegative ? 1 : 0;
    const char* const first = at;
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        for (; static_cast<unsigned char>(*at - '0') < 10; ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    };
    takeDigits();
    const std::ptrdiff_t whole = at - first;
    if (whole == 0 || (whole > 1 && *first == '0') || text.size() > mostDigits) return std::nullopt;
    if (at == end)
        return JsonNumber::ofInteger(isNegative ? -static_cast<std::int64_t>(digits)
                                                : static_cast<std::int64_t>(digits));
    if (*at++ != '.') return std::nullopt;
    const char* const fraction = at;
    takeDigits();
    if (at != end || at == fraction || digits > largestExactWhole) return std::nullopt;
    const double value = static_cast<double>(digits) / powersOfTen[at - fraction];
    return JsonNumber::ofReal(isNegative ? -value : value);
}

}  // namespace

JsonNumber JsonNumber::parse(std::string_view text)
{
    if (text.empty()) return {.kind = Kind::malformed, .real = 0};
    if (const auto plain = plainNumber(text)) return *plain;
    const auto token = scan(text);
    if (!token) return {.kind = Kind::malformed, .real = 0};
    if (token->fraction.empty()) {
        if (const auto integer = integerOf(*token)) return *integer;
    }
    return realOf(*token);
}

char* writeReal(double value, char* to)
{
    if (std::signbit(value)) *to++ = '-';
    const double magnitude = std::fabs(value);
    if (char* end = writeFewDecimals(magnitude, to)) return end;
    return withFraction(to, std::to_chars(to, to + maximumRealLength - 4, magnitude).ptr);
}

char* writeReal32(float value, char* to)
{
    return withFraction(to, std::to_chars(to, to + maximumRealLength - 4, value).ptr);
}

}  // namespace Platform
