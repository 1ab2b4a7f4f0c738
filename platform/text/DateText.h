#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/Date.h"

// Dates as texts in the current locale and time zone. An instant that the
// calendar has no place for gives no text. Thread: any; formatters are kept per thread.
namespace Platform {

enum class DateStyle { none, short_ };
enum class TextZone { current, utc };

// By a pattern of Unicode's date fields ("yyyy-MM-dd", "EEEE").
std::optional<std::string> formattedDate(Date date, std::string_view pattern);

// By the locale's own patterns.
std::optional<std::string> formattedDate(Date date, DateStyle dateStyle, DateStyle timeStyle,
                                         TextZone zone = TextZone::current);

// Reads a whole text by a pattern, strictly: absent where a field is out of its range.
std::optional<Date> parsedDate(std::string_view text, std::string_view pattern);

}  // namespace Platform
