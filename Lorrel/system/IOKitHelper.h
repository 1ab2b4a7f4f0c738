#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/Number.h"
#include "platform/system/IORegistry.h"

namespace Lorrel {

// Typed reads of hardware-registry properties. Thread: any.
class IOKitHelper {
public:
    IOKitHelper() = delete;

    // The first four bytes as a little-endian unsigned 32-bit number, missing
    // ones as zero; absent when the property is missing or not a block of bytes.
    static std::optional<Platform::Number> numberProperty(const Platform::IORegistryEntry& entry, std::string_view key);
    // The bytes as UTF-8 text; absent when missing, not a block of bytes, or not UTF-8.
    static std::optional<std::string> stringProperty(const Platform::IORegistryEntry& entry, std::string_view key);
};

}  // namespace Lorrel
