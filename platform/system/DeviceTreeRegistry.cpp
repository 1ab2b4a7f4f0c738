#include <algorithm>
#include <memory>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Utf8.h"
#include "platform/system/IORegistry.h"
#include "platform/system/internal/SmallFile.h"

namespace Platform {

namespace {

std::string tree(std::string_view path)
{
    return SystemRoots::shared().proc() + "/device-tree" + std::string(path);
}

std::optional<IOProperty> bytesOf(const std::string& path)
{
    auto content = readSmallFile(path);
    if (!content) return std::nullopt;
    return IOBytes{std::move(*content)};
}

// A node of the device tree: its properties are its files.
class TreeNode final : public IORegistryEntry {
public:
    explicit TreeNode(std::string folder) : folder_(std::move(folder)) {}

    std::optional<IOProperty> property(std::string_view key) const override
    {
        if (key.empty() || key.find('/') != std::string_view::npos) return std::nullopt;
        return bytesOf(folder_ + "/" + std::string(key));
    }

private:
    std::string folder_;
};

// The machine as a product: what the root of the device tree says of it.
class Product final : public IORegistryEntry {
public:
    std::optional<IOProperty> property(std::string_view key) const override
    {
        return key == "product-description" ? bytesOf(tree("/model")) : std::nullopt;
    }
};

// The machine as a device: its serial number, as DMI or the device tree has it.
class Machine final : public IORegistryEntry {
public:
    std::optional<IOProperty> property(std::string_view key) const override
    {
        if (key != "IOPlatformSerialNumber") return std::nullopt;
        const auto onBoard = readLine(SystemRoots::shared().sys() + "/class/dmi/id/product_serial");
        const auto serial = onBoard ? onBoard : readSmallFile(tree("/serial-number"));
        if (!serial) return std::nullopt;
        return repairedUtf8(std::string_view(*serial).substr(0, serial->find('\0')));
    }
};

class DeviceTreeRegistry final : public IORegistry {
public:
    std::vector<IORegistryEntryRef> servicesNamed(std::string_view name) const override
    {
        if (name != "cpu") return {};
        auto names = entriesWithPrefix(tree("/cpus"), "cpu@");
        std::ranges::sort(names);
        std::vector<IORegistryEntryRef> entries;
        for (const auto& entry : names) entries.push_back(std::make_shared<TreeNode>(tree("/cpus/" + entry)));
        return entries;
    }

    IORegistryEntryRef serviceOfClass(IOPort, std::string_view className) const override
    {
        return className == "IOPlatformExpertDevice" ? std::make_shared<Machine>() : nullptr;
    }

    IORegistryEntryRef entryAtPath(IOPort, std::string_view path) const override
    {
        const bool isKnown = path == "IOService:/AppleARMPE/product" && readSmallFile(tree("/model"));
        return isKnown ? std::make_shared<Product>() : nullptr;
    }
};

}  // namespace

IORegistry& IORegistry::shared()
{
    return Shared<IORegistry>::get([] { return std::make_unique<DeviceTreeRegistry>(); });
}

}  // namespace Platform
