#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

#include <sys/sysinfo.h>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Trim.h"
#include "platform/system/ProcessInfo.h"
#include "platform/system/internal/HostName.h"
#include "platform/system/internal/Processors.h"
#include "platform/system/internal/SmallFile.h"
#include "platform/system/internal/TimedQuestion.h"

namespace Platform {

namespace {

using namespace std::chrono_literals;

struct TripPoint {
    std::string_view type;
    ThermalState state;
};

// The kernel's kinds of trip point, and what reaching one means for the machine.
constexpr TripPoint tripPoints[] = {
    {"active", ThermalState::fair},
    {"passive", ThermalState::serious},
    {"hot", ThermalState::serious},
    {"critical", ThermalState::critical},
};

constexpr int mostTripPoints = 16;

// A zone without an answering sensor counts as cool.
ThermalState stateOfZone(const std::string& zone)
{
    const auto reading = readSlowFile(zone + "/temp");
    const auto temperature = reading ? parseNumber(trimmed(*reading)) : std::nullopt;
    ThermalState worst = ThermalState::nominal;
    for (int i = 0; temperature && i < mostTripPoints; ++i) {
        const std::string point = zone + "/trip_point_" + std::to_string(i);
        const auto type = readLine(point + "_type");
        if (!type) break;
        const auto limit = readNumber(point + "_temp");
        const auto kind = std::ranges::find(tripPoints, *type, &TripPoint::type);
        const bool isReached = limit && *limit > 0 && *temperature >= *limit;
        if (isReached && kind != std::end(tripPoints)) worst = std::max(worst, kind->state);
    }
    return worst;
}

class LinuxProcessInfo final : public ProcessInfo {
public:
    std::string operatingSystemVersionString() const override
    {
        const auto content = readSmallFile(SystemRoots::shared().etc() + "/os-release");
        const auto name = content ? shellValue(*content, "PRETTY_NAME") : std::nullopt;
        return name ? "Version " + *name : "Version";
    }

    int activeProcessorCount() const override { return onlineProcessors(); }

    ThermalState thermalState() const override
    {
        const std::string zones = SystemRoots::shared().sys() + "/class/thermal";
        std::vector<TimedQuestion> asked;
        for (const auto& zone : entriesWithPrefix(zones, "thermal_zone")) {
            const std::string path = zones + "/" + zone;
            asked.emplace_back(100ms, path, [path] { return static_cast<int>(stateOfZone(path)); });
        }
        int worst = 0;
        for (const auto& zone : asked) worst = std::max(worst, zone.answer().value_or(0));
        return static_cast<ThermalState>(worst);
    }

    std::uint64_t physicalMemory() const override
    {
        struct sysinfo information {};
        if (::sysinfo(&information) != 0) return 0;
        return static_cast<std::uint64_t>(information.totalram) * information.mem_unit;
    }

    std::optional<std::string> computerName() const override { return prettyHostName(); }
};

}  // namespace

ProcessInfo& ProcessInfo::shared()
{
    return Shared<ProcessInfo>::get([] { return std::make_unique<LinuxProcessInfo>(); });
}

}  // namespace Platform
