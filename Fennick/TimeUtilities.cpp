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

}  // namespace Fennick
