#pragma once

#include <cstdint>
#include <string>

#include "platform/text/Duration.h"

namespace Fennick {

using Platform::UnitDuration;

// Any thread.
class TimeUtilities {
public:
    TimeUtilities() = delete;

    // "01:01.234" for 61.234 s, from an hour on with hours in front.
    static std::string stopwatchText(std::uint64_t nanoseconds);

    // A duration of one unit in another, with its name in the user's language:
    // 90 minutes in hours are "1.5 hr".
    static std::string durationText(std::int64_t value, UnitDuration from, UnitDuration to);
};

}  // namespace Fennick
