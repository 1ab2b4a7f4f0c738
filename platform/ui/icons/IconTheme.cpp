#include "platform/ui/icons/IconTheme.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

#include "platform/runtime/Environment.h"
#include "platform/runtime/FileBytes.h"
#include "platform/runtime/Shared.h"
#include "platform/ui/ImageCodec.h"
#include "platform/ui/icons/IconThemeIndex.h"

namespace Platform {
namespace {

namespace fs = std::filesystem;

constexpr std::array extensions{".png", ".svg"};
// Chains of inheritance are longer only where themes inherit each other in a circle.
constexpr std::size_t longestChain = 32;
constexpr std::size_t largestText = 16 << 20;  // of an index or of settings

// Empty when it cannot be read.
std::string contentOf(const std::string& path)
{
    const auto bytes = readFileBytes(path, largestText);
    return bytes ? *bytes : std::string();
}

std::optional<std::string> fileIn(const std::string& folder, const std::string& name)
{
    for (const char* extension : extensions) {
        std::string path = folder + "/" + name + extension;
        std::error_code error;
        if (fs::is_regular_file(path, error)) return path;
    }
    return std::nullopt;
}

std::vector<std::string> sessionFolders()
{
    const Environment& environment = Environment::shared();
    std::vector<std::string> folders{environment.homeDirectory() + "/.icons", environment.dataHome() + "/icons"};
    std::istringstream data(environment.variable("XDG_DATA_DIRS").value_or(""));
    std::string folder;
    while (std::getline(data, folder, ':')) {
        if (folder.starts_with('/')) folders.push_back(folder + "/icons");
    }
    for (const char* usual : {"/usr/local/share/icons", "/usr/share/icons", "/usr/share/pixmaps"}) {
        if (std::ranges::find(folders, usual) == folders.end()) folders.emplace_back(usual);
    }
    return folders;
}

// "gtk-icon-theme-name = Papirus" of the toolkit settings that most desktops keep up to date.
std::string sessionThemeName()
{
    std::istringstream settings(contentOf(Environment::shared().configHome() + "/gtk-3.0/settings.ini"));
    std::string line;
    while (std::getline(settings, line)) {
        if (!line.starts_with("gtk-icon-theme-name")) continue;
        const std::size_t from = line.find_first_not_of(" =", line.find('='));
        if (from != std::string::npos) return line.substr(from, line.find_last_not_of(" \r") + 1 - from);
    }
    return "Adwaita";
}

}  // namespace

struct IconTheme::Theme {
    std::vector<std::string> roots;
    IconThemeIndex index;
};

IconTheme& IconTheme::shared()
{
    return Shared<IconTheme>::get([] { return std::make_unique<IconTheme>(sessionFolders(), sessionThemeName()); });
}

IconTheme::IconTheme(std::vector<std::string> searchPaths, std::string themeName)
    : searchPaths_(std::move(searchPaths)), themeName_(std::move(themeName))
{
}

IconTheme::~IconTheme() = default;

// A theme may be spread over several search paths; the first index counts.
const IconTheme::Theme& IconTheme::theme(const std::string& name)
{
    auto& slot = themes_[name];
    if (slot) return *slot;
    slot = std::make_unique<Theme>();
    for (const std::string& path : searchPaths_) {
        const std::string root = path + "/" + name;
        std::error_code error;
        if (!fs::is_directory(root, error)) continue;
        if (slot->index.folders.empty()) slot->index = IconThemeIndex::parse(contentOf(root + "/index.theme"));
        slot->roots.push_back(root);
    }
    return *slot;
}

std::vector<std::string> IconTheme::lookupOrder()
{
    std::vector<std::string> order{themeName_};
    for (std::size_t i = 0; i < order.size() && i < longestChain; ++i) {
        for (const std::string& parent : theme(order[i]).index.inherits) {
            if (std::ranges::find(order, parent) == order.end()) order.push_back(parent);
        }
    }
    std::erase(order, "hicolor");
    order.emplace_back("hicolor");
    return order;
}

std::optional<std::string> IconTheme::pathInTheme(const Theme& theme, const std::string& name, int pixels) const
{
    std::vector<const IconFolder*> nearest;
    for (const IconFolder& folder : theme.index.folders) nearest.push_back(&folder);
    std::ranges::stable_sort(nearest, {}, [pixels](const IconFolder* folder) { return folder->distance(pixels); });
    for (const IconFolder* folder : nearest) {
        for (const std::string& root : theme.roots) {
            if (auto path = fileIn(root + "/" + folder->path, name)) return path;
        }
    }
    return std::nullopt;
}

std::optional<std::string> IconTheme::loosePath(const std::string& name) const
{
    for (const std::string& path : searchPaths_) {
        if (auto file = fileIn(path, name)) return file;
    }
    return std::nullopt;
}

std::optional<std::string> IconTheme::path(const std::string& name, int pixels)
{
    // A name is no path: icons of other folders are none of ours.
    if (name.empty() || name.find('/') != std::string::npos) return std::nullopt;
    const std::lock_guard lock(mutex_);
    for (const std::string& each : lookupOrder()) {
        if (auto found = pathInTheme(theme(each), name, pixels)) return found;
    }
    return loosePath(name);
}

ImageRef IconTheme::icon(const std::string& name, int pixels)
{
    const std::lock_guard lock(mutex_);
    const auto known = icons_.find({name, pixels});
    if (known != icons_.end()) return known->second;
    ImageRef image;
    if (const auto file = path(name, pixels)) {
        auto bitmap = decodeImageFile(Url::fromPath(*file, false), pixels, pixels);
        if (bitmap) image = std::make_shared<Image>(std::move(*bitmap));
    }
    return icons_[{name, pixels}] = image;
}

ImageRef IconTheme::icon(const std::vector<std::string>& names, int pixels)
{
    for (const std::string& name : names) {
        if (ImageRef image = icon(name, pixels)) return image;
    }
    return nullptr;
}

}  // namespace Platform
