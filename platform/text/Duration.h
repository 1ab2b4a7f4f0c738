#pragma once

#include <optional>
#include <string>

namespace Platform {

enum class UnitDuration { hours, minutes, seconds, milliseconds, microseconds, nanoseconds, picoseconds };

double secondsIn(UnitDuration unit);

// A measurement with its unit in the current locale's short form ("1.5 hr"),
// three fraction digits at most; absent when the library has no text.
// Thread: any; a formatter is kept per thread.
std::optional<std::string> durationText(double value, UnitDuration unit);

}  // namespace Platform
