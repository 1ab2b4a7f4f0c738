#include "platform/system/internal/HostName.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include <systemd/sd-bus.h>

#include "platform/runtime/Environment.h"
#include "platform/system/internal/SmallFile.h"

namespace Platform {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto answerTime = 1s;

struct CloseBus {
    void operator()(sd_bus* bus) const { ::sd_bus_close_unref(bus); }
};

// Never 0, which the bus library takes for its own default.
std::uint64_t microsecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now());
    return static_cast<std::uint64_t>(std::max<std::int64_t>(left.count(), 1));
}

// A blocking call would greet the bus first, and wait minutes for one that hangs.
bool becomesReady(sd_bus* bus, Clock::time_point deadline)
{
    while (::sd_bus_is_ready(bus) == 0) {
        const int work = ::sd_bus_process(bus, nullptr);
        if (work < 0 || Clock::now() >= deadline) return false;
        const int wait = work == 0 ? ::sd_bus_wait(bus, microsecondsUntil(deadline)) : 0;
        if (wait < 0 && wait != -EINTR) return false;
    }
    return ::sd_bus_is_ready(bus) > 0;
}

std::optional<std::string> nameOnBus()
{
    const auto deadline = Clock::now() + answerTime;
    sd_bus* opened = nullptr;
    if (::sd_bus_open_system(&opened) < 0) return std::nullopt;
    const std::unique_ptr<sd_bus, CloseBus> bus(opened);
    if (!becomesReady(bus.get(), deadline)) return std::nullopt;
    ::sd_bus_set_method_call_timeout(bus.get(), microsecondsUntil(deadline));
    char* text = nullptr;
    const int status =
        ::sd_bus_get_property_string(bus.get(), "org.freedesktop.hostname1", "/org/freedesktop/hostname1",
                                     "org.freedesktop.hostname1", "PrettyHostname", nullptr, &text);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, &std::free);
    if (status < 0 || !text || !*text) return std::nullopt;
    return std::string(text);
}

}  // namespace

std::optional<std::string> prettyHostName()
{
    const auto content = readSmallFile(SystemRoots::shared().etc() + "/machine-info");
    const auto written = content ? shellValue(*content, "PRETTY_HOSTNAME") : std::nullopt;
    return written && !written->empty() ? written : nameOnBus();
}

}  // namespace Platform
