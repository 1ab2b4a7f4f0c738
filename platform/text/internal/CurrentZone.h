#pragma once

#include <memory>
#include <string>

#include <unicode/timezone.h>

namespace Platform {

// The zone that TZ names, else the one that /etc/localtime points to; looked at
// again when the environment is replaced and, for the system's, once a second.
// One object a thread, never ending: made anew where the zone has changed.
struct CurrentZone {
    std::unique_ptr<icu::TimeZone> zone;
    std::string name;
    unsigned generation = 0;  // another number for another zone
};
const CurrentZone& currentZone();

}  // namespace Platform
