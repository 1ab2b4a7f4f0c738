#include <string>
#include <utility>

#include "Lorrel/apps/App.h"
#include "Lorrel/apps/Apps.h"
#include "Lorrel/apps/internal/BundleDescription.h"
#include "Lorrel/files/Directory.h"
#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"

namespace Lorrel {

namespace {

using Platform::Url;

std::vector<std::shared_ptr<App>> recordsOf(const std::vector<BundleDescription>& descriptions);

std::shared_ptr<App> recordOf(const BundleDescription& found)
{
    auto app = found.isIconFileKnown ? std::make_shared<App>(found.name, found.identifier,
                                                             FileIconManager::shared().icon(found.name, found.iconFile),
                                                             Url::fromPath(found.bundle.path(), true))
                                     : std::make_shared<App>(found.name, found.identifier);
    app->setBinaryFile(found.bundle);
    app->setVersion(found.version);
    app->setCopyright(found.copyright);
    app->setInstalled(found.installed);
    app->setChildren(recordsOf(found.children));
    return app;
}

std::vector<std::shared_ptr<App>> recordsOf(const std::vector<BundleDescription>& descriptions)
{
    std::vector<std::shared_ptr<App>> apps;
    for (const auto& each : descriptions) apps.push_back(recordOf(each));
    return apps;
}

}  // namespace

std::shared_ptr<App> Apps::app(const Url& bundle, bool includeChildren, bool excludeApple)
{
    const auto found = BundleDescription::read(bundle, includeChildren, excludeApple);
    return found ? recordOf(*found) : nullptr;
}

std::vector<std::shared_ptr<App>> Apps::installedApps(bool excludeApple)
{
    const auto folders = Path::subfolders(url(Directory::applications), true);
    return recordsOf(BundleDescription::readAll(folders, excludeApple));
}

std::vector<std::shared_ptr<App>> Apps::children(const Url& bundle, bool excludeApple)
{
    return recordsOf(BundleDescription::readChildren(bundle, excludeApple));
}

std::optional<std::string> Apps::bundleIdentifier(const Url& bundle)
{
    return bundleIdentifierOf(bundle);
}

std::optional<ProductApp> Apps::productApp(const Url& folder)
{
    std::optional<ProductApp> product;
    const auto look = [&](const Platform::DirectoryEntry& entry) {
        if (!entry.name.ends_with(".app")) return Platform::Visit::goOn;
        product = ProductApp{withoutAppEnding(std::string(entry.name)),
                             Platform::IconService::shared().iconForFile(std::string(entry.path))};
        return Platform::Visit::stop;
    };
    const std::string products = folder.appendingPathComponent("Products", true).path();
    constexpr Platform::EnumerationOptions visibleOutsidePackages{.skipsHidden = true, .skipsPackageDescendants = true};
    return Platform::FileManager::shared().enumerate(products, visibleOutsidePackages, look) ? product : std::nullopt;
}

}  // namespace Lorrel
