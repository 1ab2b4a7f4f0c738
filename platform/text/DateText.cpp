#include "platform/text/DateText.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include <unicode/smpdtfmt.h>

#include "platform/text/Locale.h"
#include "platform/text/internal/CurrentZone.h"

namespace Platform {

namespace {

constexpr double farthest = 1.5e14;  // seconds, somewhat within the library's range
constexpr std::size_t mostKept = 16;

// What a formatter is made for; styles where the pattern is empty.
struct Form {
    std::string_view pattern;
    DateStyle dateStyle = DateStyle::none;
    DateStyle timeStyle = DateStyle::none;
    TextZone zone = TextZone::current;
};

struct Kept {
    std::string pattern;
    Form form;
    std::unique_ptr<icu::DateFormat> formatter;

    bool serves(const Form& wanted) const
    {
        return pattern == wanted.pattern && form.dateStyle == wanted.dateStyle && form.timeStyle == wanted.timeStyle &&
               form.zone == wanted.zone;
    }
};

// The formatters of one thread, the latest made last.
struct KeptForms {
    std::string locale;
    unsigned zone = 0;
    std::vector<Kept> forms;
};

icu::DateFormat::EStyle styleOf(DateStyle style)
{
    return style == DateStyle::short_ ? icu::DateFormat::kShort : icu::DateFormat::kNone;
}

std::unique_ptr<icu::DateFormat> made(const Form& form, const CurrentZone& zone)
{
    const icu::Locale locale(currentLocaleName().c_str());
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::DateFormat> formatter;
    if (form.dateStyle == DateStyle::none && form.timeStyle == DateStyle::none) {
        const auto pattern =
            icu::UnicodeString::fromUTF8({form.pattern.data(), static_cast<int32_t>(form.pattern.size())});
        formatter = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    } else {
        formatter.reset(
            icu::DateFormat::createDateTimeInstance(styleOf(form.dateStyle), styleOf(form.timeStyle), locale));
    }
    if (U_FAILURE(status) || !formatter) return nullptr;
    formatter->setTimeZone(form.zone == TextZone::utc ? *icu::TimeZone::getGMT() : *zone.zone);
    formatter->setLenient(false);
    return formatter;
}

// Null when the library has none for it.
icu::DateFormat* formatterFor(const Form& form)
{
    thread_local KeptForms kept;
    const CurrentZone& zone = currentZone();
    if (kept.zone != zone.generation || kept.locale != currentLocaleName()) {
        kept = {currentLocaleName(), zone.generation, {}};
    }
    for (const Kept& candidate : kept.forms) {
        if (candidate.serves(form)) return candidate.formatter.get();
    }
    if (kept.forms.size() == mostKept) kept.forms.erase(kept.forms.begin());
    kept.forms.push_back({std::string(form.pattern), form, made(form, zone)});
    kept.forms.back().form.pattern = {};
    return kept.forms.back().formatter.get();
}

std::optional<std::string> written(Date date, const Form& form)
{
    const double seconds = date.timeIntervalSince1970();
    icu::DateFormat* formatter = std::abs(seconds) <= farthest ? formatterFor(form) : nullptr;
    if (!formatter) return std::nullopt;
    icu::UnicodeString text;
    formatter->format(seconds * 1'000, text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

}  // namespace

std::optional<std::string> formattedDate(Date date, std::string_view pattern)
{
    return written(date, {.pattern = pattern});
}

std::optional<std::string> formattedDate(Date date, DateStyle dateStyle, DateStyle timeStyle, TextZone zone)
{
    if (dateStyle == DateStyle::none && timeStyle == DateStyle::none) return "";
    return written(date, {.pattern = {}, .dateStyle = dateStyle, .timeStyle = timeStyle, .zone = zone});
}

std::optional<Date> parsedDate(std::string_view text, std::string_view pattern)
{
    icu::DateFormat* formatter = text.size() < 1'000 ? formatterFor({.pattern = pattern}) : nullptr;
    if (!formatter) return std::nullopt;
    const auto source = icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
    icu::ParsePosition position;
    const double seconds = formatter->parse(source, position) / 1'000;
    if (position.getErrorIndex() >= 0 || position.getIndex() != source.length()) return std::nullopt;
    if (!(std::abs(seconds) <= farthest)) return std::nullopt;
    return Date(seconds);
}

}  // namespace Platform
