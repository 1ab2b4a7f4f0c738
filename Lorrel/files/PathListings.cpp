#include <algorithm>
#include <utility>

#include "Lorrel/files/Directory.h"
#include "Lorrel/files/Path.h"
#include "Lorrel/files/internal/Printed.h"
#include "platform/files/FileManager.h"

namespace Lorrel {

namespace {

using Platform::DirectoryEntry;
using Platform::EnumerationOptions;
using Platform::FileManager;
using Platform::Url;
using Platform::Visit;

constexpr EnumerationOptions visible{.skipsHidden = true};
constexpr EnumerationOptions visibleOutsidePackages{.skipsHidden = true, .skipsPackageDescendants = true};
constexpr EnumerationOptions visibleDirectly{
    .skipsHidden = true, .skipsPackageDescendants = true, .skipsSubfolders = true};

template <typename Predicate>
std::vector<Url> collected(const Url& folder, const EnumerationOptions& options, Predicate&& isWanted)
{
    std::vector<Url> found;
    const auto keep = [&](const DirectoryEntry& entry) {
        if (isWanted(entry)) found.push_back(entry.url());
        return Visit::goOn;
    };
    // A folder that cannot be listed has no entries.
    if (!FileManager::shared().enumerate(folder.path(), options, keep)) return {};
    return found;
}

bool isInLibrary(const Url& location)
{
    const auto components = location.pathComponents();
    return components.size() > 3 && components[3] == "Library";
}

bool isLink(const Url& location)
{
    return location != location.resolvingSymlinksInPath();
}

std::vector<Url> withoutLibrary(std::vector<Url> locations)
{
    std::erase_if(locations, isInLibrary);
    return locations;
}

}  // namespace

std::vector<Url> Path::items(const Url& folder)
{
    return collected(folder, visibleOutsidePackages, [](const DirectoryEntry&) { return true; });
}

std::vector<Url> Path::files(const Url& folder)
{
    return collected(folder, visibleOutsidePackages, [](const DirectoryEntry& entry) { return !entry.isDirectory; });
}

std::vector<Url> Path::files(const Url& folder, std::string_view suffix)
{
    return collected(folder, visible, [&](const DirectoryEntry& entry) { return entry.name.ends_with(suffix); });
}

std::vector<Url> Path::directories(const Url& folder, std::string_view suffix)
{
    return collected(folder, visibleOutsidePackages,
                     [&](const DirectoryEntry& entry) { return entry.isDirectory && entry.name.ends_with(suffix); });
}

std::vector<Url> Path::contents(const Url& folder, bool directories)
{
    std::vector<Url> found;
    const auto keep = [&](const DirectoryEntry& entry) {
        if (entry.isDirectory == directories) found.push_back(entry.url());
        return Visit::goOn;
    };
    const auto listed = FileManager::shared().enumerate(folder.path(), visibleDirectly, keep);
    if (listed) return found;
    printLine(listed.error());
    return {};
}

std::vector<Url> Path::contents(const Url& folder, bool directories, bool excludingLibrary)
{
    auto found = contents(folder, directories);
    return excludingLibrary ? withoutLibrary(std::move(found)) : found;
}

std::vector<Url> Path::containers(bool excludingSystem)
{
    auto found = contents(url(Directory::containers), true);
    if (excludingSystem) {
        std::erase_if(found, [](const Url& folder) { return folder.lastPathComponent().starts_with("com.apple."); });
    }
    return found;
}

std::vector<Url> Path::subfolders(const Url& folder)
{
    std::vector<Url> found;
    const auto keep = [&](const DirectoryEntry& entry) {
        if (entry.error) {
            printLine(*entry.error);
            return Visit::stop;
        }
        if (entry.isDirectory) found.push_back(entry.url());
        return Visit::goOn;
    };
    if (!FileManager::shared().enumerate(folder.path(), visibleOutsidePackages, keep)) return {};
    return found;
}

std::vector<Url> Path::subfolders(const Url& folder, bool excludingLibrary)
{
    auto found = subfolders(folder);
    return excludingLibrary ? withoutLibrary(std::move(found)) : found;
}

int Path::nestedCount(const Url& folder, bool directories)
{
    std::size_t count = 0;
    std::vector<Url> pending = contents(folder, directories, true);
    while (!pending.empty()) {
        const Url location = std::move(pending.back());
        pending.pop_back();
        if (isLink(location) || isInLibrary(location)) continue;
        auto inside = contents(location, directories);
        count += inside.size();
        std::move(inside.begin(), inside.end(), std::back_inserter(pending));
    }
    return static_cast<int>(count);
}

}  // namespace Lorrel
