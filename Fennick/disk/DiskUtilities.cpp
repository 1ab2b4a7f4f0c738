#include "Fennick/disk/DiskUtilities.h"

#include <charconv>
#include <limits>
#include <optional>

#include "Fennick/datastore/NumberTexts.h"

namespace Fennick {

namespace {

constexpr std::uint64_t kilobyte = 1 << 10;
constexpr std::uint64_t megabyte = 1 << 20;
constexpr std::uint64_t gigabyte = 1 << 30;

// Bytes that make so many bits; the limits of a rate in bits, without multiplying it.
constexpr std::uint64_t kilobit = 1'000 / 8;
constexpr std::uint64_t megabit = 1'000'000 / 8;
constexpr std::uint64_t gigabit = 1'000'000'000 / 8;
constexpr std::uint64_t terabit = 1'000 * gigabit;

std::string whole(std::uint64_t number, const char* unit)
{
    return std::to_string(number) + unit;
}

// As printf's %.2f in the POSIX locale, whatever the process has set.
std::string twoDecimals(std::uint64_t count, std::uint64_t per, const char* unit)
{
    char text[48];
    const double number = static_cast<double>(count) / static_cast<double>(per);
    const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 2).ptr;
    return std::string(text, end) + unit;
}

std::optional<std::uint64_t> perSecond(std::uint64_t bytes, double seconds)
{
    if (!(seconds > 0)) return std::nullopt;
    const double rate = static_cast<double>(bytes) / seconds;
    constexpr double limit = 18446744073709551616.0;  // 2 to the 64
    return rate < limit ? static_cast<std::uint64_t>(rate) : std::numeric_limits<std::uint64_t>::max();
}

}  // namespace

std::string DiskUtilities::byteCountText(std::uint64_t bytes)
{
    return Fennick::byteCountText(bytes);
}

std::string DiskUtilities::rateText(std::uint64_t bytesPerSecond, bool bits)
{
    const std::uint64_t rate = bytesPerSecond;
    if (!bits) {
        if (rate < kilobyte) return whole(rate, " B/s");
        if (rate < megabyte) return whole(rate / kilobyte, " KB/s");
        return rate < gigabyte ? twoDecimals(rate, megabyte, " MB/s") : twoDecimals(rate, gigabyte, " GB/s");
    }
    if (rate < kilobit) return whole(rate * 8, " b/s");
    if (rate < megabit) return whole(rate * 8 / 1'000, " Kb/s");
    if (rate < gigabit) return twoDecimals(rate * 8, 1'000'000, " Mb/s");
    return rate < terabit ? twoDecimals(rate * 8, 1'000'000'000, " Gb/s") : "0 b/s";
}

std::string DiskUtilities::compactRateText(std::uint64_t bytesPerSecond, bool bits)
{
    const std::uint64_t rate = bytesPerSecond;
    if (!bits) {
        const bool isWholeMegabytes = rate >= megabyte && rate < gigabyte;
        return isWholeMegabytes ? whole(rate / megabyte, " MB/s") : rateText(rate, false);
    }
    if (rate < megabit) return rateText(rate, true);
    return rate < gigabit ? whole(rate / megabit, " Mb/s") : whole(rate / gigabit, " Gb/s");
}

std::string DiskUtilities::rateText(std::uint64_t bytes, double seconds, bool bits)
{
    const auto rate = perSecond(bytes, seconds);
    return rate ? rateText(*rate, bits) : "-";
}

std::string DiskUtilities::compactRateText(std::uint64_t bytes, double seconds, bool bits)
{
    const auto rate = perSecond(bytes, seconds);
    return rate ? compactRateText(*rate, bits) : "-";
}

}  // namespace Fennick
