#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Platform {

// Bytes as the firmware keeps them; a type of their own beside texts.
struct IOBytes {
    std::string content;
    friend bool operator==(const IOBytes&, const IOBytes&) = default;
};

using IOProperty = std::variant<IOBytes, std::string>;
using IOPort = std::uint32_t;

inline constexpr IOPort kIOMainPortDefault = 0;
inline constexpr IOPort kIOMasterPortDefault = 0;

// One entry of the hardware registry. Thread: any.
class IORegistryEntry {
public:
    virtual ~IORegistryEntry() = default;

    // Absent when the entry has no such property.
    virtual std::optional<IOProperty> property(std::string_view key) const = 0;
};

using IORegistryEntryRef = std::shared_ptr<const IORegistryEntry>;

// The machine's hardware as its firmware describes it: the device tree and DMI.
// Nothing is translated: a property holds the firmware's own bytes.
//
// "cpu" by name              | the device tree's processors, properties by their names
// "IOPlatformExpertDevice"   | the machine: "IOPlatformSerialNumber" is a text
// "IOService:/AppleARMPE/product" | the device tree's root: "product-description" is its model
//
// Thread: any.
class IORegistry {
public:
    static IORegistry& shared();
    virtual ~IORegistry() = default;

    // Every entry of that name; empty without a device tree.
    virtual std::vector<IORegistryEntryRef> servicesNamed(std::string_view name) const = 0;
    // The entry of a class, or at a path; null when there is none.
    virtual IORegistryEntryRef serviceOfClass(IOPort port, std::string_view className) const = 0;
    virtual IORegistryEntryRef entryAtPath(IOPort port, std::string_view path) const = 0;
};

}  // namespace Platform
