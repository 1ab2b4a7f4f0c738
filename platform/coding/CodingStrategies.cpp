#include "platform/coding/CodingStrategies.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace Platform {

namespace {

constexpr double firstSecond = -62167219200.0;  // 0000-01-01
constexpr double endSecond = 253402300800.0;    // 10000-01-01

// Takes pieces off the front of a text; after a failure everything fails.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    int digits(std::size_t count)
    {
        int value = 0;
        if (rest_.size() < count || rest_.substr(0, count).find_first_not_of("0123456789") != std::string_view::npos) {
            failed_ = true;
            return 0;
        }
        std::from_chars(rest_.data(), rest_.data() + count, value);
        rest_.remove_prefix(count);
        return value;
    }

    bool optional(char wanted)
    {
        if (!rest_.starts_with(wanted)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    void expect(char wanted) { require(optional(wanted)); }
    void require(bool holds) { failed_ |= !holds; }

    double fraction()
    {
        const std::size_t length = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        require(length > 0);
        double value = 0;
        for (std::size_t i = length; i-- > 0;) value = (value + (rest_[i] - '0')) / 10;
        rest_.remove_prefix(length);
        return value;
    }

    bool isComplete() const { return !failed_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool failed_ = false;
};

// Seconds east of UTC, from "Z", "+02:00" or "-0330".
int offsetSeconds(Scanner& scanner)
{
    if (scanner.optional('Z')) return 0;
    const int sign = scanner.optional('-') ? -1 : 1;
    if (sign > 0) scanner.expect('+');
    const int hours = scanner.digits(2);
    scanner.optional(':');
    const int minutes = scanner.digits(2);
    scanner.require(hours < 24 && minutes < 60);
    return sign * (hours * 3600 + minutes * 60);
}

}  // namespace

std::optional<std::string> iso8601Text(Date date)
{
    const double seconds = std::floor(date.timeIntervalSince1970());
    if (!(seconds >= firstSecond && seconds < endSecond)) return std::nullopt;
    const std::chrono::sys_seconds instant{std::chrono::seconds(static_cast<long long>(seconds))};
    const auto midnight = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day day(midnight);
    const std::chrono::hh_mm_ss time(instant - midnight);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text;
}

std::optional<Date> dateFromIso8601(std::string_view text)
{
    Scanner scanner(text);
    const std::chrono::year year(scanner.digits(4));
    scanner.expect('-');
    const std::chrono::month month(static_cast<unsigned>(scanner.digits(2)));
    scanner.expect('-');
    const std::chrono::day day(static_cast<unsigned>(scanner.digits(2)));
    scanner.expect('T');
    const int hours = scanner.digits(2);
    scanner.expect(':');
    const int minutes = scanner.digits(2);
    scanner.expect(':');
    const int seconds = scanner.digits(2);
    const double fraction = scanner.optional('.') ? scanner.fraction() : 0;
    const int offset = offsetSeconds(scanner);

    const std::chrono::year_month_day date(year, month, day);
    if (!scanner.isComplete() || !date.ok() || hours > 23 || minutes > 59 || seconds > 60) return std::nullopt;
    const double days = static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count());
    return Date(days * 86400.0 + hours * 3600 + minutes * 60 + seconds + fraction - offset);
}

}  // namespace Platform
