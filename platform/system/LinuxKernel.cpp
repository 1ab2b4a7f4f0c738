#include <algorithm>
#include <cstring>
#include <ctime>
#include <limits>
#include <memory>

#include <sys/utsname.h>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Trim.h"
#include "platform/system/Kernel.h"
#include "platform/system/ProcessInfo.h"
#include "platform/system/internal/Processors.h"
#include "platform/system/internal/SmallFile.h"

namespace Platform {

namespace {

using Bytes = std::optional<std::string>;

Bytes terminated(Bytes text)
{
    if (text) text->push_back('\0');
    return text;
}

template <typename Integer>
std::string littleEndian(Integer value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);  // every machine that we run on is little-endian
    return bytes;
}

std::string sys(std::string_view path)
{
    return SystemRoots::shared().sys() + std::string(path);
}
std::string proc(std::string_view path)
{
    return SystemRoots::shared().proc() + std::string(path);
}

// The value of the first line "KEY : VALUE" or "KEY VALUE" of a /proc file's content.
Bytes procValue(std::string_view content, std::string_view key)
{
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        std::string_view line = content.substr(0, end);
        content.remove_prefix(std::min(end + 1, content.size()));
        if (!line.starts_with(key)) continue;
        line.remove_prefix(key.size());
        const std::size_t value = line.find_first_not_of(": \t");
        const bool isOtherKey = value == 0;
        if (!isOtherKey && value != std::string_view::npos) return std::string(trimmed(line.substr(value)));
    }
    return std::nullopt;
}

Bytes model()
{
    auto name = readLine(sys("/class/dmi/id/product_name"));
    if (name) return terminated(name);
    return readSmallFile(proc("/device-tree/model"));  // ends in a zero byte already
}

Bytes brandString()
{
    // The first record tells; the kernel makes up the others only for those who read on.
    return terminated(procValue(readSmallFile(proc("/cpuinfo"), 4096).value_or(""), "model name"));
}
Bytes hostName()
{
    return terminated(readLine(proc("/sys/kernel/hostname")));
}
Bytes logicalProcessors()
{
    return littleEndian(static_cast<std::int32_t>(onlineProcessors()));
}
Bytes physicalProcessors()
{
    return littleEndian(static_cast<std::int32_t>(physicalCores()));
}

Bytes productVersion()
{
    const auto content = readSmallFile(SystemRoots::shared().etc() + "/os-release");
    return terminated(content ? shellValue(*content, "VERSION_ID") : std::nullopt);
}

Bytes bootTime()
{
    const auto seconds = procValue(readSmallFile(proc("/stat")).value_or(""), "btime");
    const auto number = seconds ? parseNumber(*seconds) : std::nullopt;
    if (!number || *number <= 0) return std::nullopt;
    return littleEndian<std::int64_t>(*number) + littleEndian<std::int64_t>(0);
}

struct Variable {
    std::string_view name;
    Bytes (*read)();
};

constexpr Variable variables[] = {
    {"hw.model", model},
    {"machdep.cpu.brand_string", brandString},
    {"machdep.cpu.thread_count", logicalProcessors},
    {"hw.logicalcpu", logicalProcessors},
    {"hw.physicalcpu", physicalProcessors},
    {"kern.hostname", hostName},
    {"kern.osproductversion", productVersion},
    {"kern.boottime", bootTime},
};

struct ProcessorType {
    std::string_view machine;
    std::int32_t type;
    std::int32_t subtype;
};

// The numbers that the record has for these kinds of processor.
constexpr ProcessorType processorTypes[] = {
    {"x86_64", 0x01000007, 3}, {"aarch64", 0x0100000C, 0}, {"arm64", 0x0100000C, 0}};

class LinuxKernel final : public Kernel {
public:
    std::optional<std::string> variable(std::string_view name) const override
    {
        const auto found = std::ranges::find(variables, name, &Variable::name);
        return found == std::end(variables) ? std::nullopt : found->read();
    }

    std::optional<std::string> variable(std::span<const int> name) const override
    {
        return std::ranges::equal(name, bootTimeVariable) ? bootTime() : std::nullopt;
    }

    std::string machine() const override
    {
        utsname names{};
        return ::uname(&names) == 0 ? names.machine : "";
    }

    std::optional<std::int64_t> rawUptimeSeconds() const override
    {
        timespec time{};
        if (::clock_gettime(CLOCK_MONOTONIC_RAW, &time) != 0) return std::nullopt;
        return time.tv_sec;
    }

    HostBasicInfo hostBasicInfo() const override
    {
        HostBasicInfo info;
        info.max_cpus = info.logical_cpu_max = presentProcessors();
        info.avail_cpus = info.logical_cpu = onlineProcessors();
        info.physical_cpu = info.physical_cpu_max = physicalCores();
        info.max_mem = ProcessInfo::shared().physicalMemory();
        info.memory_size = static_cast<std::uint32_t>(
            std::min<std::uint64_t>(info.max_mem, std::numeric_limits<std::uint32_t>::max()));
        const auto type = std::ranges::find(processorTypes, machine(), &ProcessorType::machine);
        if (type != std::end(processorTypes)) {
            info.cpu_type = type->type;
            info.cpu_subtype = type->subtype;
        }
        return info;
    }
};

}  // namespace

Kernel& Kernel::shared()
{
    return Shared<Kernel>::get([] { return std::make_unique<LinuxKernel>(); });
}

}  // namespace Platform
