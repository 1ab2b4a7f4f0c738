#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Date.h"
#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// One installed application, with the places on the disk that belong to it.
// What the catalogue does not fill (lastOpened, selected, container, preferences,
// savedState, caches) is for the owner of the record. Thread: one at a
// time; made in the main thread, which icons belong to.
class App {
public:
    using Url = Platform::Url;

    // With the application's icon; every optional is absent, every list empty.
    App(const std::string& name, std::string identifier);
    // The same where its icon and its place are known already.
    App(std::string name, std::string identifier, Platform::ImageRef icon, Url baseUrl);

    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    const Platform::ImageRef& icon() const { return icon_; }
    void setIcon(Platform::ImageRef icon) { icon_ = std::move(icon); }
    const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }
    // When its bundle was created on this disk.
    const std::optional<Platform::Date>& installed() const { return installed_; }
    void setInstalled(std::optional<Platform::Date> date) { installed_ = date; }
    const std::optional<Platform::Date>& lastOpened() const { return lastOpened_; }
    void setLastOpened(std::optional<Platform::Date> date) { lastOpened_ = date; }
    bool selected() const { return selected_; }
    void setSelected(bool selected) { selected_ = selected; }
    const std::optional<std::string>& version() const { return version_; }
    void setVersion(std::optional<std::string> version) { version_ = std::move(version); }
    // Its place in the applications folder, whether it is there or not.
    const std::optional<Url>& baseUrl() const { return baseUrl_; }
    void setBaseUrl(std::optional<Url> url) { baseUrl_ = std::move(url); }
    const std::optional<std::string>& copyright() const { return copyright_; }
    void setCopyright(std::optional<std::string> text) { copyright_ = std::move(text); }
    // The bundle that the record was made from.
    const std::optional<Url>& binaryFile() const { return binaryFile_; }
    void setBinaryFile(std::optional<Url> url) { binaryFile_ = std::move(url); }
    const std::optional<Url>& container() const { return container_; }
    void setContainer(std::optional<Url> url) { container_ = std::move(url); }
    const std::optional<Url>& preferences() const { return preferences_; }
    void setPreferences(std::optional<Url> url) { preferences_ = std::move(url); }
    const std::optional<Url>& savedState() const { return savedState_; }
    void setSavedState(std::optional<Url> url) { savedState_ = std::move(url); }
    const std::vector<Url>& caches() const { return caches_; }
    void setCaches(std::vector<Url> urls) { caches_ = std::move(urls); }
    // Applications, extensions and services inside the bundle.
    const std::vector<std::shared_ptr<App>>& children() const { return children_; }
    void setChildren(std::vector<std::shared_ptr<App>> children) { children_ = std::move(children); }

    // Bytes on the disk, read anew with each call: of one of the places above
    // (0 where it is absent), of them all with the caches, of the caches.
    static std::uint64_t size(const std::optional<Url>& place);
    std::uint64_t totalSize() const;
    std::uint64_t cachesSize() const;

private:
    std::string name_;
    Platform::ImageRef icon_;
    std::string identifier_;
    std::optional<Platform::Date> installed_;
    std::optional<Platform::Date> lastOpened_;
    bool selected_ = false;
    std::optional<std::string> version_;
    std::optional<Url> baseUrl_;
    std::optional<std::string> copyright_;
    std::optional<Url> binaryFile_;
    std::optional<Url> container_;
    std::optional<Url> preferences_;
    std::optional<Url> savedState_;
    std::vector<Url> caches_;
    std::vector<std::shared_ptr<App>> children_;
};

}  // namespace Lorrel
