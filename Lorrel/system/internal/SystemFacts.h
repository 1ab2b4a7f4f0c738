#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "Lorrel/system/AppleHardwareDetails.h"
#include "platform/runtime/Image.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

// A value that is computed on its first read and may be assigned.
template <typename T>
class CachedValue {
public:
    using Source = T (*)();
    explicit CachedValue(Source source) : source_(source) {}

    T get()
    {
        std::lock_guard lock(mutex_);
        if (!value_) value_ = source_();
        return *value_;
    }

    void set(T value)
    {
        std::lock_guard lock(mutex_);
        value_ = std::move(value);
    }

private:
    std::recursive_mutex mutex_;  // a source may read its neighbours
    Source source_;
    std::optional<T> value_;
};

// Where each cached fact comes from.
std::string findSerialNumber();
std::string findMarketingName();
std::string findComputerName();
std::string findProcessorName();
std::optional<AppleHardwareDetails> findHardwareDetails();
// Processors whose compatibility text contains the name.
int processorsCompatibleWith(std::string_view name);

// The facts that are kept for the life of the process; a test starts them
// afresh by Shared<SystemFacts>::Override.
struct SystemFacts {
    SystemFacts();

    CachedValue<std::string> serialNumber;
    CachedValue<std::string> marketingName;
    CachedValue<std::string> computerName;
    CachedValue<std::string> model;
    CachedValue<std::string> cpuBrand;
    CachedValue<std::string> hostName;
    CachedValue<std::uint8_t> threadCount;
    CachedValue<std::uint8_t> physicalCoreCount;
    CachedValue<std::uint8_t> logicalCoreCount;
    CachedValue<std::string> architecture;
    CachedValue<std::string> processorName;
    CachedValue<std::optional<AppleHardwareDetails>> hardwareDetails;
    CachedValue<Platform::ImageRef> bigSurWallpaper;
    CachedValue<Platform::ImageRef> montereyWallpaper;
    CachedValue<Platform::ImageRef> venturaWallpaper;

    static SystemFacts& shared()
    {
        return Platform::Shared<SystemFacts>::get([] { return std::make_unique<SystemFacts>(); });
    }
};

}  // namespace Lorrel
