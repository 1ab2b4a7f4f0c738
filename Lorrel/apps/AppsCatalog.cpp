#include <algorithm>
#include <string>
#include <utility>

#include "Lorrel/apps/App.h"
#include "Lorrel/apps/Apps.h"
#include "Lorrel/files/Directory.h"
#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/bundle/PropertyList.h"
#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"

namespace Lorrel {

namespace {

using Platform::DirectoryEntry;
using Platform::FileManager;
using Platform::PropertyList;
using Platform::Url;
using Platform::Visit;

constexpr Platform::EnumerationOptions visibleOutsidePackages{.skipsHidden = true, .skipsPackageDescendants = true};

std::optional<PropertyList> informationOf(const Url& bundle)
{
    auto list = PropertyList::read(bundle.path() + "/Contents/Info.plist");
    return list ? std::optional(std::move(list).value()) : std::nullopt;
}

bool isNestedBundle(std::string_view name)
{
    return name.ends_with(".app") || name.ends_with(".appex") || name.ends_with(".xpc");
}

}  // namespace

std::shared_ptr<App> Apps::app(const Url& bundle, bool includeChildren, bool excludeApple)
{
    const auto information = informationOf(bundle);
    const auto identifier = information ? information->textAt("CFBundleIdentifier") : std::nullopt;
    if (!identifier || (excludeApple && identifier->starts_with("com.apple."))) return nullptr;
    auto app = std::make_shared<App>(withoutAppEnding(bundle.lastPathComponent()), *identifier);
    app->setBinaryFile(bundle);
    app->setVersion(information->textAt("CFBundleShortVersionString"));
    app->setCopyright(information->textAt("NSHumanReadableCopyright"));
    app->setInstalled(Path::creationDate(bundle.path()));
    if (includeChildren) app->setChildren(children(bundle, excludeApple));
    return app;
}

std::vector<std::shared_ptr<App>> Apps::installedApps(bool excludeApple)
{
    std::vector<std::shared_ptr<App>> apps;
    for (const Url& folder : Path::subfolders(url(Directory::applications), true)) {
        if (auto found = app(folder, true, excludeApple)) apps.push_back(std::move(found));
    }
    return apps;
}

std::vector<std::shared_ptr<App>> Apps::children(const Url& bundle, bool excludeApple)
{
    std::vector<std::shared_ptr<App>> apps;
    const auto look = [&](const DirectoryEntry& entry) {
        if (!isNestedBundle(entry.name)) return Visit::goOn;
        if (auto found = app(entry.url(), false, excludeApple)) apps.push_back(std::move(found));
        return Visit::goOn;
    };
    // A bundle that cannot be listed has none.
    return FileManager::shared().enumerate(bundle.path(), visibleOutsidePackages, look)
               ? apps
               : std::vector<std::shared_ptr<App>>();
}

std::optional<std::string> Apps::bundleIdentifier(const Url& bundle)
{
    const auto information = informationOf(bundle);
    return information ? information->textAt("CFBundleIdentifier") : std::nullopt;
}

std::optional<ProductApp> Apps::productApp(const Url& folder)
{
    std::optional<ProductApp> product;
    const auto look = [&](const DirectoryEntry& entry) {
        if (!entry.name.ends_with(".app")) return Visit::goOn;
        product = ProductApp{withoutAppEnding(std::string(entry.name)),
                             Platform::IconService::shared().iconForFile(std::string(entry.path))};
        return Visit::stop;
    };
    const std::string products = folder.appendingPathComponent("Products", true).path();
    return FileManager::shared().enumerate(products, visibleOutsidePackages, look) ? product : std::nullopt;
}

}  // namespace Lorrel
