#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/Date.h"

namespace Platform {

// How a date stands in a format that has no dates of its own.
enum class DateStrategy {
    secondsSince1970,       // a number
    millisecondsSince1970,  // a number
    iso8601,                // a text in UTC, whole seconds: "2024-02-29T12:00:00Z"
};

// Cut to whole seconds; absent outside the years 0 to 9999.
std::optional<std::string> iso8601Text(Date date);
// Also takes an offset such as "+02:00" and a fraction of the second; absent
// when the text is not of that form or names no day of the calendar.
std::optional<Date> dateFromIso8601(std::string_view text);

}  // namespace Platform
