#pragma once

#include <map>

#include "platform/system/Kernel.h"
#include "platform/system/ProcessInfo.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A kernel that knows just the variables that a test gives it.
class FakeKernel final : public Platform::Kernel {
public:
    std::map<std::string, std::string, std::less<>> variables;
    std::string bootTime;
    std::string machineName = "x86_64";
    std::optional<std::int64_t> uptime;

    std::optional<std::string> variable(std::string_view name) const override
    {
        const auto found = variables.find(name);
        if (found == variables.end()) return std::nullopt;
        return found->second;
    }
    std::optional<std::string> variable(std::span<const int>) const override
    {
        return bootTime.empty() ? std::nullopt : std::optional(bootTime);
    }
    std::string machine() const override { return machineName; }
    std::optional<std::int64_t> rawUptimeSeconds() const override { return uptime; }
    Platform::HostBasicInfo hostBasicInfo() const override { return {.logical_cpu_max = 6}; }
};

using ReplacedKernel = Replaced<Platform::Kernel, FakeKernel>;

class FakeProcessInfo final : public Platform::ProcessInfo {
public:
    std::string version = "Version";
    std::optional<std::string> name;

    std::string operatingSystemVersionString() const override { return version; }
    int activeProcessorCount() const override { return 4; }
    Platform::ThermalState thermalState() const override { return Platform::ThermalState::serious; }
    std::uint64_t physicalMemory() const override { return 1536; }
    std::optional<std::string> computerName() const override { return name; }
};

using ReplacedProcessInfo = Replaced<Platform::ProcessInfo, FakeProcessInfo>;

}  // namespace Tests
