#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/Url.h"
#include "platform/runtime/Window.h"

namespace Lorrel {

// The folders that the user has allowed the application to read, kept across
// launches. Thread: main.
class IFolderPermissions {
public:
    using Url = Platform::Url;
    // With the chosen folder, or nothing when none was chosen.
    using Completion = std::function<void(const std::optional<Url>&)>;

    virtual ~IFolderPermissions() = default;

    // How many folders are in storedUrls().
    virtual std::size_t count() const = 0;
    // The paths whose bookmarks are held, in the order of their saving.
    virtual const std::vector<std::string>& keys() const = 0;
    // The folders in use since this object was made.
    virtual const std::set<Url>& storedUrls() const = 0;

    virtual std::uint64_t creationOptions() const = 0;
    virtual void setCreationOptions(std::uint64_t options) = 0;
    virtual std::uint64_t resolutionOptions() const = 0;
    virtual void setResolutionOptions(std::uint64_t options) = 0;

    // Bookmarks the folder and starts using it; a refusal changes nothing.
    virtual void save(const Url& url) = 0;
    // Forgets the folder. Its use goes on until the process ends.
    virtual void remove(std::string_view key) = 0;
    virtual void remove(const Url& url) = 0;

    // Lets the user choose a folder, beginning at home or in the given one, and
    // saves it. The completion also gets a folder that could not be saved.
    virtual void requestAccess(const Platform::WindowRef& window, Completion completion) = 0;
    virtual void requestAccess(const Platform::WindowRef& window, const Url& directory, Completion completion) = 0;

    virtual bool hasAccess(const Url& url) const = 0;
    // To all of them; true for an empty list.
    virtual bool hasAccess(const std::vector<Url>& urls) const = 0;

    virtual void removeAll() = 0;
};

}  // namespace Lorrel
