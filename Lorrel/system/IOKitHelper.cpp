#include "Lorrel/system/IOKitHelper.h"

#include <algorithm>
#include <cstdint>
#include <variant>

#include "platform/runtime/Utf8.h"

namespace Lorrel {

namespace {

std::optional<std::string> bytes(const Platform::IORegistryEntry& entry, std::string_view key)
{
    const auto property = entry.property(key);
    if (!property) return std::nullopt;
    const auto* block = std::get_if<Platform::IOBytes>(&*property);
    return block ? std::optional(block->content) : std::nullopt;
}

}  // namespace

std::optional<Platform::Number> IOKitHelper::numberProperty(const Platform::IORegistryEntry& entry,
                                                            std::string_view key)
{
    const auto block = bytes(entry, key);
    if (!block) return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(block->size(), 4); ++i) {
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>((*block)[i])) << (8 * i);
    }
    return Platform::Number(number);
}

std::optional<std::string> IOKitHelper::stringProperty(const Platform::IORegistryEntry& entry, std::string_view key)
{
    auto block = bytes(entry, key);
    if (!block || !Platform::isUtf8(*block)) return std::nullopt;
    return block;
}

}  // namespace Lorrel
