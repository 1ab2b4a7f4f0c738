#include "Lorrel/files/FileIconManager.h"

#include <algorithm>
#include <optional>

#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

namespace {

using Platform::IconService;
using Platform::ImageRef;
using Platform::SystemRoots;
using Platform::Url;

std::optional<Url> firstIconFile(const std::string& folder)
{
    std::optional<Url> found;
    const Platform::EnumerationOptions options{.skipsHidden = true, .skipsPackageDescendants = true};
    const auto look = [&](const Platform::DirectoryEntry& entry) {
        if (!entry.name.ends_with(".icns")) return Platform::Visit::goOn;
        found = entry.url();
        return Platform::Visit::stop;
    };
    if (!Platform::FileManager::shared().enumerate(folder, options, look)) return std::nullopt;
    return found;
}

ImageRef iconOfSystemApp(const std::string& name)
{
    const std::string app = SystemRoots::shared().system() + "/Applications/" + name + ".app";
    const auto file = firstIconFile(app + "/Contents/Resources");
    return file ? IconService::shared().imageFromFile(*file) : nullptr;
}

std::string installedApp(std::string_view name)
{
    return SystemRoots::shared().applications() + "/" + std::string(name) + ".app";
}

}  // namespace

FileIconManager& FileIconManager::shared()
{
    return Platform::Shared<FileIconManager>::get([] { return std::make_unique<FileIconManager>(); });
}

ImageRef FileIconManager::icon(const Url& location)
{
    if (location.lastPathComponent().ends_with(".app")) return IconService::shared().iconForFile(location.path());
    const auto components = location.pathComponents();
    const auto app = std::ranges::find_if(components, [](const std::string& name) { return name.ends_with(".app"); });
    return app == components.end() ? nullptr : icon(withoutAppEnding(*app));
}

template <typename FindIconFile>
ImageRef FileIconManager::lookUp(std::string name, FindIconFile&& findIconFile)
{
    if (const auto kept = cache_.find(name); kept != cache_.end()) return kept->second;
    if (auto image = iconOfSystemApp(name)) return image;
    const std::optional<Url> file = findIconFile();
    auto image = IconService::shared().iconForFile(file ? file->path() : installedApp(name));
    if (image) cache_.emplace(std::move(name), image);
    return image;
}

ImageRef FileIconManager::icon(std::string_view appName)
{
    return lookUp(std::string(appName), [&] { return firstIconFile(resourcesFolder(appName)); });
}

ImageRef FileIconManager::icon(std::string_view appName, const std::optional<Url>& iconFile)
{
    return lookUp(std::string(appName), [&] { return iconFile; });
}

std::string FileIconManager::resourcesFolder(std::string_view appName)
{
    return installedApp(appName) + "/Contents/Resources";
}

std::string withoutAppEnding(std::string name)
{
    constexpr std::string_view ending = ".app";
    for (std::size_t at = 0; (at = name.find(ending, at)) != std::string::npos;) name.erase(at, ending.size());
    return name;
}

}  // namespace Lorrel
