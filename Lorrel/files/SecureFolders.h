#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/Url.h"
#include "platform/runtime/Window.h"

namespace Lorrel {

// The older way to keep folders that the user has allowed: bookmarks in the
// standard user defaults under keys that the caller chooses, and one set of
// folders in use for the whole process. Thread: main.
class SecureFolders {
public:
    using Url = Platform::Url;

    SecureFolders() = delete;

    // Starts using the folders stored under the keys; those that were moved,
    // deleted or replaced stay out.
    static void restore(const std::vector<std::string>& keys);
    static void restore(std::string_view key);

    // Bookmarks the folder under the key and starts using it; a refusal stores nothing.
    static void save(const Url& url, std::string_view key);
    static void stopAccessing(const Url& url);
    static void removeBookmarks(const std::vector<std::string>& keys);
    // To all of them; true for an empty list.
    static bool hasAccess(const std::vector<Url>& urls);

    // Lets the user choose a folder and saves it under the key. The completion
    // learns whether one was chosen, or in which folder the panel stood then.
    static void requestAccess(const Platform::WindowRef& window, const Url& directory, std::string_view key,
                              std::string_view prompt, std::function<void(bool)> completion);
    static void requestAccess(const Platform::WindowRef& window, const std::optional<Url>& directory,
                              std::string_view key, std::string_view prompt,
                              std::function<void(const std::optional<Url>&)> completion);

    // The folders in use; a test starts them afresh by Shared<Accessed>::Override.
    struct Accessed {
        std::set<Url> urls;
    };
};

}  // namespace Lorrel
