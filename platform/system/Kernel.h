#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Platform {

// The kernel's record of the machine. Memory sizes are bytes, the narrow one
// saturates; processor type and subtype are 0 where the machine is of neither
// known kind. Counts without "max" are of what is online now.
struct HostBasicInfo {
    std::int32_t max_cpus = 0;
    std::int32_t avail_cpus = 0;
    std::uint32_t memory_size = 0;
    std::int32_t cpu_type = 0;
    std::int32_t cpu_subtype = 0;
    std::int32_t cpu_threadtype = 0;
    std::int32_t physical_cpu = 0;
    std::int32_t physical_cpu_max = 0;
    std::int32_t logical_cpu = 0;
    std::int32_t logical_cpu_max = 0;
    std::uint64_t max_mem = 0;
};

// What the kernel says of itself, under the names that its variables have in
// this system. Read afresh on every call. Thread: any.
//
// name                        | shape              | answered by
// hw.model                    | text               | DMI product name, else the device tree's model
// machdep.cpu.brand_string    | text               | /proc/cpuinfo
// machdep.cpu.thread_count    | 32-bit number      | online processors
// hw.logicalcpu               | 32-bit number      | online processors
// hw.physicalcpu              | 32-bit number      | cores that the online processors share
// kern.hostname               | text               | /proc/sys/kernel/hostname
// kern.osproductversion       | text               | os-release VERSION_ID
// kern.boottime (1, 21)       | 64-bit s, 64-bit us| /proc/stat
//
// Texts end in a zero byte, numbers are little-endian.
class Kernel {
public:
    static Kernel& shared();
    virtual ~Kernel() = default;

    // The bytes of a variable by name or by number; absent where the machine does not know it.
    virtual std::optional<std::string> variable(std::string_view name) const = 0;
    virtual std::optional<std::string> variable(std::span<const int> name) const = 0;

    // The machine field of uname ("x86_64").
    virtual std::string machine() const = 0;
    // Whole seconds of the raw monotonic clock; absent when it cannot be read.
    virtual std::optional<std::int64_t> rawUptimeSeconds() const = 0;
    virtual HostBasicInfo hostBasicInfo() const = 0;
};

// Numbers of kern.boottime.
inline constexpr int bootTimeVariable[] = {1, 21};

}  // namespace Platform
