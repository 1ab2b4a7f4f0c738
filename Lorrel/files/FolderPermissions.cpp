#include "Lorrel/files/FolderPermissions.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Lorrel/files/Directory.h"
#include "Lorrel/resource_bundle_accessor.h"
#include "platform/files/OpenPanel.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Utf8.h"

namespace Lorrel {

using Platform::Bookmarks;
using Platform::OpenPanelAnswer;

std::shared_ptr<FolderPermissions> FolderPermissions::create(std::shared_ptr<Platform::UserDefaults> userDefaults,
                                                             std::uint64_t creationOptions,
                                                             std::uint64_t resolutionOptions)
{
    std::shared_ptr<FolderPermissions> permissions(
        new FolderPermissions(std::move(userDefaults), creationOptions, resolutionOptions));
    permissions->load();
    return permissions;
}

FolderPermissions::FolderPermissions(std::shared_ptr<Platform::UserDefaults> userDefaults,
                                     std::uint64_t creationOptions, std::uint64_t resolutionOptions)
    : userDefaults_(std::move(userDefaults)), creationOptions_(creationOptions), resolutionOptions_(resolutionOptions)
{
}

void FolderPermissions::load()
{
    const auto stored = userDefaults_->stringArray(key);
    if (!stored) return;
    for (const auto& folderKey : *stored) {
        if (const auto bookmark = userDefaults_->data(folderKey)) restore(folderKey, *bookmark);
    }
}

void FolderPermissions::restore(const std::string& folderKey, const Platform::PropertyList::Data& bookmark)
{
    const auto resolved = Bookmarks::shared().resolve(bookmark, resolutionOptions_);
    if (!resolved) {
        Platform::log(resolved.error().message());
        return;
    }
    if (resolved->isStale || !Bookmarks::shared().startAccessing(resolved->url)) return;
    storedUrls_.insert(resolved->url);
    keys_.push_back(folderKey);
}

void FolderPermissions::save(const Url& url)
{
    const auto bookmark = Bookmarks::shared().create(url, creationOptions_);
    if (!bookmark || !Bookmarks::shared().startAccessing(url)) return;
    storedUrls_.insert(url);
    userDefaults_->set(url.path(), *bookmark);
    keys_.push_back(url.path());
    storeKeys();
}

void FolderPermissions::remove(std::string_view folderKey)
{
    const std::string removed(folderKey);  // may be an element of the list
    userDefaults_->remove(removed);
    const auto stored = std::ranges::find(storedUrls_, removed, &Url::path);
    if (stored != storedUrls_.end()) storedUrls_.erase(stored);
    std::erase(keys_, removed);
    storeKeys();
}

void FolderPermissions::remove(const Url& url)
{
    const std::string path = url.path();  // the location may be an element of the set
    storedUrls_.erase(url);
    remove(path);
}

void FolderPermissions::removeAll()
{
    const auto all = keys_;
    for (const auto& folderKey : all) remove(folderKey);
}

bool FolderPermissions::hasAccess(const std::vector<Url>& urls) const
{
    return std::ranges::all_of(urls, [&](const Url& url) { return hasAccess(url); });
}

void FolderPermissions::requestAccess(const Platform::WindowRef& window, Completion completion)
{
    requestAccess(window, url(Directory::user), std::move(completion));
}

void FolderPermissions::requestAccess(const Platform::WindowRef& window, const Url& directory, Completion completion)
{
    Platform::OpenPanelRequest request;
    request.directory = directory;
    request.prompt = Resources::text("ALLOW");
    const auto finish = [self = shared_from_this(), completion = std::move(completion)](const OpenPanelAnswer& answer) {
        if (answer.response != OpenPanelAnswer::ok) return completion(std::nullopt);
        if (!answer.url) return;
        self->save(*answer.url);
        completion(answer.url);
    };
    Platform::OpenPanel::shared().beginSheet(window, request, finish);
}

void FolderPermissions::storeKeys()
{
    // A path that is no text cannot be stored; among the others it would keep them out as well.
    std::vector<std::string> storable;
    std::ranges::copy_if(keys_, std::back_inserter(storable),
                         [](const std::string& path) { return Platform::isUtf8(path); });
    userDefaults_->setStringArray(key, storable);
}

}  // namespace Lorrel
