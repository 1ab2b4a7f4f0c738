#include "platform/bus/BusLink.h"

#include <algorithm>

#include <poll.h>
#include <time.h>

namespace Platform {

namespace {

constexpr std::uint64_t never = UINT64_MAX;

int start(sd_bus* bus, const std::string& address)
{
    if (const int refused = sd_bus_set_address(bus, address.c_str()); refused < 0) return refused;
    if (const int refused = sd_bus_set_bus_client(bus, true); refused < 0) return refused;
    return sd_bus_start(bus);
}

timespec timespecOf(std::chrono::nanoseconds time)
{
    return {static_cast<time_t>(time.count() / 1'000'000'000), static_cast<long>(time.count() % 1'000'000'000)};
}

}  // namespace

std::uint64_t busMicroseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000;
}

Result<std::unique_ptr<BusLink>> BusLink::open(const std::string& address)
{
    sd_bus* bus = nullptr;
    if (const int made = sd_bus_new(&bus); made < 0) return Error::fromErrno("sd_bus_new", address, -made);
    std::unique_ptr<BusLink> link(new BusLink(bus));
    if (const int started = start(bus, address); started < 0) {
        return Error::fromErrno("sd_bus_start", address, -started);
    }
    return link;
}

bool BusLink::hasUnsent() const
{
    std::uint64_t count = 0;
    return sd_bus_get_n_queued_write(bus_.get(), &count) >= 0 && count > 0;
}

std::uint32_t BusLink::events() const
{
    return static_cast<std::uint32_t>(std::max(0, sd_bus_get_events(bus_.get())));
}

std::optional<std::uint64_t> BusLink::deadline() const
{
    std::uint64_t time = never;
    if (sd_bus_get_timeout(bus_.get(), &time) < 0 || time == never) return std::nullopt;
    return time;
}

bool BusLink::process(int limit)
{
    for (int count = 0; count < limit; ++count) {
        const int answer = sd_bus_process(bus_.get(), nullptr);
        if (answer == 0) return true;
        if (answer < 0) return false;
    }
    return true;
}

void BusLink::wait(std::chrono::nanoseconds timeout) const
{
    if (const auto due = deadline()) {
        const std::uint64_t now = busMicroseconds();
        timeout = std::min<std::chrono::nanoseconds>(timeout, std::chrono::microseconds(*due > now ? *due - now : 0));
    }
    pollfd descriptors{descriptor(), static_cast<short>(events()), 0};
    const timespec longest = timespecOf(timeout);
    ::ppoll(&descriptors, 1, &longest, nullptr);
}

}  // namespace Platform
