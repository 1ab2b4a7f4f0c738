#include <cstdint>

#include "Fennick/DateUtilities.h"
#include "Fennick/internal/TextWriter.h"

namespace Fennick {

namespace {

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3'600;
constexpr std::int64_t day = 86'400;

// The absolute value has no place in 64 bits for the least number.
bool reaches(std::int64_t seconds, std::int64_t amount)
{
    return seconds >= amount || seconds <= -amount;
}

}  // namespace

std::string DateUtilities::clockText(std::int64_t seconds)
{
    internal::TextWriter writer;
    writer.number(seconds / day, 2).text(":").number(seconds % day / hour, 2).text(":");
    return writer.number(seconds % hour / minute, 2).text(":").number(seconds % minute, 2).string();
}

std::string DateUtilities::hoursMinutesText(std::optional<std::int64_t> duration)
{
    const std::int64_t seconds = duration.value_or(0);
    const std::int64_t hours = seconds / hour;
    const std::int64_t minutes = seconds % hour / minute;
    internal::TextWriter writer;
    if (reaches(seconds, hour)) return writer.number(hours).text("h ").number(minutes).text("m").string();
    if (reaches(seconds, minute)) return writer.number(minutes).text("m").string();
    return "0h 0m";
}

std::string DateUtilities::hoursMinutesSecondsText(std::int64_t seconds, bool compact)
{
    const std::int64_t withinDay = seconds % day;
    const std::int64_t hours = withinDay / hour;
    const std::int64_t minutes = withinDay % hour / minute;
    const std::int64_t rest = seconds % minute;
    internal::TextWriter writer;
    if (!compact || reaches(withinDay, hour)) {
        return writer.number(hours, 2).text("h ").number(minutes, 2).text("m ").number(rest, 2).text("s").string();
    }
    if (reaches(withinDay, minute)) return writer.number(minutes, 2).text("m ").number(rest, 2).text("s").string();
    return rest == 0 ? "0 s" : writer.number(rest, 2).text("s").string();
}

}  // namespace Fennick
