#pragma once

#include <memory>

#include "Lorrel/files/IFolderPermissions.h"
#include "platform/bundle/UserDefaults.h"
#include "platform/files/Bookmarks.h"

namespace Lorrel {

// Keeps each folder's bookmark in user defaults under the folder's path, and
// the list of these paths under "Bookmarks". A folder that was moved, deleted
// or replaced since is not used: it must be chosen again. One whose path is not
// UTF-8 is used until the process ends, but cannot be kept. Thread: main.
class FolderPermissions final : public IFolderPermissions, public std::enable_shared_from_this<FolderPermissions> {
public:
    static constexpr const char* key = "Bookmarks";

    // Starts using the stored folders. Make it when the application starts.
    static std::shared_ptr<FolderPermissions> create(
        std::shared_ptr<Platform::UserDefaults> userDefaults,
        std::uint64_t creationOptions = Platform::BookmarkOptions::creationWithSecurityScope,
        std::uint64_t resolutionOptions = Platform::BookmarkOptions::resolutionWithSecurityScope);

    const std::shared_ptr<Platform::UserDefaults>& userDefaults() const { return userDefaults_; }

    std::size_t count() const override { return storedUrls_.size(); }
    const std::vector<std::string>& keys() const override { return keys_; }
    const std::set<Url>& storedUrls() const override { return storedUrls_; }
    std::uint64_t creationOptions() const override { return creationOptions_; }
    void setCreationOptions(std::uint64_t options) override { creationOptions_ = options; }
    std::uint64_t resolutionOptions() const override { return resolutionOptions_; }
    void setResolutionOptions(std::uint64_t options) override { resolutionOptions_ = options; }

    void save(const Url& url) override;
    void remove(std::string_view key) override;
    void remove(const Url& url) override;
    void requestAccess(const Platform::WindowRef& window, Completion completion) override;
    void requestAccess(const Platform::WindowRef& window, const Url& directory, Completion completion) override;
    bool hasAccess(const Url& url) const override { return storedUrls_.contains(url); }
    bool hasAccess(const std::vector<Url>& urls) const override;
    void removeAll() override;

private:
    FolderPermissions(std::shared_ptr<Platform::UserDefaults> userDefaults, std::uint64_t creationOptions,
                      std::uint64_t resolutionOptions);
    void load();
    void restore(const std::string& folderKey, const Platform::PropertyList::Data& bookmark);
    void storeKeys();

    std::shared_ptr<Platform::UserDefaults> userDefaults_;
    std::vector<std::string> keys_;
    std::set<Url> storedUrls_;
    std::uint64_t creationOptions_;
    std::uint64_t resolutionOptions_;
};

}  // namespace Lorrel
