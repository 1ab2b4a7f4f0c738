#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Fennick {

// Texts for durations in whole seconds. Divisions cut toward zero, so every
// part of a negative duration bears the sign. Any thread.
class DateUtilities {
public:
    DateUtilities() = delete;

    // Days, hours, minutes, seconds: "01:01:01:01" for 90 061.
    static std::string clockText(std::int64_t seconds);
    // "1h 1m", below an hour "59m", below a minute or absent "0h 0m".
    static std::string hoursMinutesText(std::optional<std::int64_t> seconds);
    // "00h 01m 05s" of the time within the day; compact leaves hours out where
    // there are none: "01m 05s", "05s", "0 s".
    static std::string hoursMinutesSecondsText(std::int64_t seconds, bool compact);
};

}  // namespace Fennick
