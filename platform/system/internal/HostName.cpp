#include "platform/system/internal/HostName.h"

#include <cstdlib>
#include <memory>

#include <systemd/sd-bus.h>

#include "platform/runtime/Environment.h"
#include "platform/system/internal/SmallFile.h"

namespace Platform {

namespace {

constexpr std::uint64_t answerTime = 1'000'000;  // microseconds

struct CloseBus {
    void operator()(sd_bus* bus) const { ::sd_bus_flush_close_unref(bus); }
};

std::optional<std::string> nameOnBus()
{
    sd_bus* opened = nullptr;
    if (::sd_bus_open_system(&opened) < 0) return std::nullopt;
    const std::unique_ptr<sd_bus, CloseBus> bus(opened);
    ::sd_bus_set_method_call_timeout(bus.get(), answerTime);
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
