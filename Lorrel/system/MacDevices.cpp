#include "Lorrel/system/MacDevices.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/internal/DeviceCoding.h"
#include "Lorrel/system/internal/DeviceIcons.h"
#include "platform/files/FileManager.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

namespace {

using Cache = std::map<std::string, MacDevice, std::less<>>;

Cache& cache()
{
    return Platform::Shared<Cache>::get([] { return std::make_unique<Cache>(); });
}

// The pieces of a model code that are tried for a picture, most exact first.
std::vector<std::string> codesOf(std::string_view model)
{
    const std::size_t start = model.find_first_not_of(',');
    if (start == std::string_view::npos) return {std::string(model)};
    const std::string family(model.substr(start, model.find(',', start) - start));
    std::string kind = family;
    std::erase_if(kind, [](char c) { return c >= '0' && c <= '9'; });
    return {std::string(model), family, kind};
}

}  // namespace

std::vector<MacDevice> MacDevices::allDevices()
{
    const auto file = Resources::bundle().urlForResource("mac-devices", "json");
    const auto content = file ? Platform::FileManager::shared().contents(file->path()) : Platform::Error{};
    return content ? decodeDevices(*content) : std::vector<MacDevice>{};
}

std::optional<MacDevice> MacDevices::device(std::string_view model)
{
    if (const auto known = cache().find(model); known != cache().end()) return known->second;
    const auto devices = allDevices();
    const auto found = std::ranges::find(devices, model, &MacDevice::model);
    if (found == devices.end()) return std::nullopt;
    cache().emplace(found->model, *found);
    return *found;
}

Platform::ImageRef MacDevices::icon(std::string_view model)
{
    const auto declarations = coreTypeDeclarations();
    for (const auto& code : codesOf(model)) {
        if (auto image = declaredIcon(declarations, code)) return image;
    }
    return nullptr;
}

}  // namespace Lorrel
