#include "Lorrel/apps/internal/BundleDescription.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/bundle/PropertyList.h"
#include "platform/files/FileManager.h"

namespace Lorrel {

namespace {

using Platform::DirectoryEntry;
using Platform::PropertyList;
using Platform::Url;
using Platform::Visit;

constexpr std::size_t mostThreads = 4;  // the caller's included
// Fewer bundles than so many for each thread are read sooner than it starts.
constexpr std::size_t bundlesWorthAThread = 8;

std::optional<PropertyList> informationOf(const Url& bundle)
{
    auto list = PropertyList::read(bundle.path() + "/Contents/Info.plist");
    return list ? std::optional(std::move(list).value()) : std::nullopt;
}

bool isNestedBundle(std::string_view name)
{
    return name.ends_with(".app") || name.ends_with(".appex") || name.ends_with(".xpc");
}

// Does the work for each number below the count, on other threads too.
template <typename Work>
void shareOut(std::size_t count, const Work& work)
{
    std::atomic<std::size_t> next = 0;
    const auto run = [&] {
        for (std::size_t number; (number = next++) < count;) work(number);
    };
    const std::size_t threads =
        std::min({std::size_t{std::thread::hardware_concurrency()}, mostThreads, count / bundlesWorthAThread});
    std::vector<std::future<void>> helpers;
    try {
        while (helpers.size() + 1 < threads) helpers.push_back(std::async(std::launch::async, run));
    } catch (const std::system_error&) {
        // No thread to be had: the others do the work.
    }
    run();
    for (auto& helper : helpers) helper.get();
}

}  // namespace

BundleDescription::BundleDescription(const Url& itsBundle)
    : bundle(itsBundle), name(withoutAppEnding(itsBundle.lastPathComponent()))
{
}

std::optional<BundleDescription> BundleDescription::read(const Url& bundle, bool includeChildren, bool excludeApple)
{
    const auto information = informationOf(bundle);
    auto identifier = information ? information->textAt("CFBundleIdentifier") : std::nullopt;
    if (!identifier || (excludeApple && identifier->starts_with("com.apple."))) return std::nullopt;
    BundleDescription found(bundle);
    found.identifier = *std::move(identifier);
    found.version = information->textAt("CFBundleShortVersionString");
    found.copyright = information->textAt("NSHumanReadableCopyright");
    found.installed = Path::creationDate(bundle.path());
    if (includeChildren) found.readChildren(excludeApple);
    return found;
}

std::vector<BundleDescription> BundleDescription::readAll(const std::vector<Url>& bundles, bool excludeApple)
{
    std::vector<std::optional<BundleDescription>> descriptions(bundles.size());
    shareOut(bundles.size(),
             [&](std::size_t number) { descriptions[number] = read(bundles[number], true, excludeApple); });
    std::vector<BundleDescription> found;
    for (auto& each : descriptions) {
        if (each) found.push_back(*std::move(each));
    }
    return found;
}

std::vector<BundleDescription> BundleDescription::readChildren(const Url& bundle, bool excludeApple)
{
    BundleDescription parent(bundle);
    parent.readChildren(excludeApple);
    return std::move(parent.children);
}

// A bundle that cannot be listed has none.
void BundleDescription::readChildren(bool excludeApple)
{
    const std::string path = bundle.path();
    const std::string resources = FileIconManager::resourcesFolder(name);
    const bool isInPlace = resources == path + "/Contents/Resources";
    const auto look = [&](const DirectoryEntry& entry) {
        if (isInPlace && entry.path == resources) isIconFileKnown = entry.isDirectory;
        const bool isIcon = isIconFileKnown && entry.name.ends_with(".icns");
        if (isIcon && !iconFile && entry.path.starts_with(resources + "/")) iconFile = entry.url();
        if (!isNestedBundle(entry.name)) return Visit::goOn;
        if (auto child = read(entry.url(), false, excludeApple)) children.push_back(*std::move(child));
        return Visit::goOn;
    };
    constexpr Platform::EnumerationOptions visibleOutsidePackages{.skipsHidden = true, .skipsPackageDescendants = true};
    static_cast<void>(Platform::FileManager::shared().enumerate(path, visibleOutsidePackages, look));
}

std::optional<std::string> bundleIdentifierOf(const Url& bundle)
{
    const auto information = informationOf(bundle);
    return information ? information->textAt("CFBundleIdentifier") : std::nullopt;
}

}  // namespace Lorrel
