#include "Lorrel/system/internal/DeviceIcons.h"

#include <algorithm>

#include "Lorrel/files/Path.h"
#include "platform/bundle/Bundle.h"
#include "platform/bundle/PropertyList.h"
#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

namespace {

using Platform::PropertyList;

Platform::Url coreTypes(std::string_view below)
{
    const std::string folder =
        Platform::SystemRoots::shared().system() + "/Library/CoreServices/CoreTypes.bundle/Contents";
    return Platform::Url::fromPath(folder + std::string(below), true);
}

bool names(const PropertyList& codes, std::string_view code)
{
    if (codes.text()) return *codes.text() == code;
    const auto* list = codes.array();
    if (!list || !std::ranges::all_of(*list, [](const PropertyList& entry) { return entry.text() != nullptr; }))
        return false;
    return std::ranges::any_of(*list, [&](const PropertyList& entry) { return *entry.text() == code; });
}

Platform::ImageRef iconOfDeclaration(const PropertyList& declaration, std::string_view code)
{
    const auto* tags = declaration.find("UTTypeTagSpecification");
    const auto* codes = tags ? tags->find("com.apple.device-model-code") : nullptr;
    if (!codes || !names(*codes, code)) return nullptr;
    const auto identifier = declaration.textAt("UTTypeIdentifier");
    return identifier ? Platform::IconService::shared().iconForContentType(*identifier) : nullptr;
}

// Absent unless the file declares its types as a list of dictionaries.
PropertyList::Array declarationsIn(const Platform::Url& file)
{
    const auto content = Platform::FileManager::shared().contents(file.path());
    if (!content) return {};
    const auto list = PropertyList::parse(*content);
    const auto* declared = list ? list->find("UTExportedTypeDeclarations") : nullptr;
    const auto* entries = declared ? declared->array() : nullptr;
    const auto isDictionary = [](const PropertyList& entry) { return entry.dictionary() != nullptr; };
    return entries && std::ranges::all_of(*entries, isDictionary) ? *entries : PropertyList::Array{};
}

Platform::ImageRef imageInBundles(const std::string& iconName)
{
    for (const auto& entry : Path::items(coreTypes("/Library"))) {
        if (!entry.lastPathComponent().ends_with(".bundle")) continue;
        const auto bundle = Platform::Bundle::open(entry.path());
        const auto file = bundle ? bundle->urlForResource(iconName, "") : std::nullopt;
        if (!file) continue;
        if (auto image = Platform::IconService::shared().imageFromFile(*file)) return image;
    }
    return nullptr;
}

}  // namespace

std::vector<Platform::Url> coreTypeDeclarations()
{
    return Path::files(coreTypes(""), ".plist");
}

Platform::ImageRef declaredIcon(const std::vector<Platform::Url>& declarations, std::string_view code)
{
    for (const auto& file : declarations) {
        for (const auto& declaration : declarationsIn(file)) {
            if (auto image = iconOfDeclaration(declaration, code)) return image;
        }
    }
    return nullptr;
}

Platform::ImageRef deviceIcon(const std::string& iconName)
{
    if (auto image = imageInBundles(iconName)) return image;
    const std::string type = iconName.substr(0, iconName.rfind(".icns"));
    return Platform::IconService::shared().iconForContentType(type);
}

}  // namespace Lorrel
