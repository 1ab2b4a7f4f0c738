#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

class App;

// The application that a build folder has produced.
struct ProductApp {
    std::string name;
    Platform::ImageRef icon;
};

// Questions and requests about applications. The first group needs nothing but
// the session (target lorrel_queries); the second is the catalogue of installed
// applications (target lorrel_apps). Thread: any for the first group and for
// bundleIdentifier; main for the rest, which fetches icons.
class Apps {
public:
    Apps() = delete;

    // Whether some running application has exactly this bundle identifier.
    static bool isRunning(std::string_view bundleIdentifier);
    // Asks the first running application with exactly this bundle identifier to
    // quit, which it may refuse. False when none runs or the request fails.
    static bool terminate(std::string_view bundleIdentifier);
    // Whether some process has exactly this name. Names have at most 16 characters.
    static bool isProcessRunning(std::string_view name);
    // Opens the application whose bundle folder is at the path, unless it runs
    // already. Nothing is reported; a refusal is logged.
    static void open(std::string_view path);

    // The record of the application whose bundle folder is at the location;
    // null without a readable Info.plist that names an identifier, and, when
    // asked so, for the system maker's own ("com.apple."). Children are listed
    // one level deep.
    static std::shared_ptr<App> app(const Platform::Url& bundle, bool includeChildren, bool excludeApple);
    // All in the applications folder and its sub-folders, with their children.
    static std::vector<std::shared_ptr<App>> installedApps(bool excludeApple);
    // Applications, extensions and services inside a bundle, but not inside one another.
    static std::vector<std::shared_ptr<App>> children(const Platform::Url& bundle, bool excludeApple);
    // Of the bundle's Info.plist; absent where that has none.
    static std::optional<std::string> bundleIdentifier(const Platform::Url& bundle);
    // The first application below the folder's "Products".
    static std::optional<ProductApp> productApp(const Platform::Url& folder);
};

}  // namespace Lorrel
