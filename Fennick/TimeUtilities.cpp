#include "Fennick/TimeUtilities.h"

#include "Fennick/internal/TextWriter.h"

namespace Fennick {

std::string TimeUtilities::stopwatchText(std::uint64_t nanoseconds)
{
    const std::uint64_t milliseconds = nanoseconds / 1'000'000;
    const std::uint64_t seconds = nanoseconds / 1'000'000'000;
    const std::uint64_t minutes = seconds / 60;
    internal::TextWriter writer;
    if (minutes >= 60) writer.number(minutes / 60, 2).text(":");
    writer.number(minutes % 60, 2).text(":").number(seconds % 60, 2);
    return writer.text(".").number(milliseconds % 1'000, 3).string();
}

// Dividing where the units allow it keeps quotients that a factor would blur: 3 ms are 0.003 s.
std::string TimeUtilities::durationText(std::int64_t value, UnitDuration from, UnitDuration to)
{
    const double factor = Platform::secondsIn(from) / Platform::secondsIn(to);
    const double divisor = Platform::secondsIn(to) / Platform::secondsIn(from);
    const auto number = static_cast<double>(value);
    return Platform::durationText(factor < 1 ? number / divisor : number * factor, to).value_or("-");
}

}  // namespace Fennick
