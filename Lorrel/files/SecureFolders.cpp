#include "Lorrel/files/SecureFolders.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/bundle/UserDefaults.h"
#include "platform/files/Bookmarks.h"
#include "platform/files/OpenPanel.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

namespace {

using Platform::Bookmarks;
using Platform::OpenPanelAnswer;
using Platform::Url;
using Platform::UserDefaults;

std::set<Url>& accessed()
{
    using Accessed = SecureFolders::Accessed;
    return Platform::Shared<Accessed>::get([] { return std::make_unique<Accessed>(); }).urls;
}

Platform::OpenPanelRequest panelRequest(const std::optional<Url>& directory, std::string_view prompt)
{
    Platform::OpenPanelRequest request;
    request.directory = directory;
    request.prompt = prompt;
    return request;
}

}  // namespace

void SecureFolders::restore(const std::vector<std::string>& keys)
{
    for (const auto& key : keys) restore(key);
}

void SecureFolders::restore(std::string_view key)
{
    const auto bookmark = UserDefaults::standard()->data(key);
    if (!bookmark) return;
    const auto resolved =
        Bookmarks::shared().resolve(*bookmark, Platform::BookmarkOptions::resolutionWithSecurityScope);
    if (!resolved || resolved->isStale || !Bookmarks::shared().startAccessing(resolved->url)) return;
    accessed().insert(resolved->url);
}

void SecureFolders::save(const Url& url, std::string_view key)
{
    const auto bookmark = Bookmarks::shared().create(url, Platform::BookmarkOptions::creationWithSecurityScope);
    if (!bookmark || !Bookmarks::shared().startAccessing(url)) return;
    accessed().insert(url);
    UserDefaults::standard()->set(key, *bookmark);
}

void SecureFolders::stopAccessing(const Url& url)
{
    Bookmarks::shared().stopAccessing(url);
    accessed().erase(url);
}

void SecureFolders::removeBookmarks(const std::vector<std::string>& keys)
{
    const auto defaults = UserDefaults::standard();
    for (const auto& key : defaults->keys()) {
        if (std::ranges::find(keys, key) != keys.end()) defaults->remove(key);
    }
}

bool SecureFolders::hasAccess(const std::vector<Url>& urls)
{
    return std::ranges::all_of(urls, [](const Url& url) { return accessed().contains(url); });
}

void SecureFolders::requestAccess(const Platform::WindowRef& window, const Url& directory, std::string_view key,
                                  std::string_view prompt, std::function<void(bool)> completion)
{
    const auto finish = [key = std::string(key), completion = std::move(completion)](const OpenPanelAnswer& answer) {
        if (answer.response != OpenPanelAnswer::ok) return completion(false);
        if (!answer.url) return;
        save(*answer.url, key);
        completion(true);
    };
    Platform::OpenPanel::shared().beginSheet(window, panelRequest(directory, prompt), finish);
}

void SecureFolders::requestAccess(const Platform::WindowRef& window, const std::optional<Url>& directory,
                                  std::string_view key, std::string_view prompt,
                                  std::function<void(const std::optional<Url>&)> completion)
{
    const auto finish = [key = std::string(key), completion = std::move(completion)](const OpenPanelAnswer& answer) {
        if (answer.response != OpenPanelAnswer::ok || !answer.url) return completion(std::nullopt);
        save(*answer.url, key);
        completion(answer.directory);
    };
    Platform::OpenPanel::shared().beginSheet(window, panelRequest(directory, prompt), finish);
}

}  // namespace Lorrel
