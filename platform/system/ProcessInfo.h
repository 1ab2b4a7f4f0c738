#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Platform {

enum class ThermalState { nominal = 0, fair = 1, serious = 2, critical = 3 };

// The running system as a process sees it. Read afresh on every call. Thread: any.
class ProcessInfo {
public:
    static ProcessInfo& shared();
    virtual ~ProcessInfo() = default;

    // "Version " and the system's own name for itself (os-release PRETTY_NAME);
    // "Version" alone where it has none.
    virtual std::string operatingSystemVersionString() const = 0;
    // Processors that are online.
    virtual int activeProcessorCount() const = 0;
    // The worst thermal zone against its own trip points: active cooling is
    // fair, passive or hot serious, critical critical. A sensor that does not
    // answer within 100 ms is left out until it does.
    virtual ThermalState thermalState() const = 0;
    // Bytes.
    virtual std::uint64_t physicalMemory() const = 0;
    // The computer's name as its owner wrote it (hostnamed's pretty name); absent where there is none.
    virtual std::optional<std::string> computerName() const = 0;
};

}  // namespace Platform
