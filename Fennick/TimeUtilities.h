#pragma once

#include <cstdint>
#include <string>

namespace Fennick {

// Any thread.
class TimeUtilities {
public:
    TimeUtilities() = delete;

    // "01:01.234" for 61.234 s, from an hour on with hours in front.
    static std::string stopwatchText(std::uint64_t nanoseconds);
};

}  // namespace Fennick
