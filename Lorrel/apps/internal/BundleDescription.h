#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Date.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// What the disk says of an application's bundle; its record is made of it, in
// the main thread, which icons belong to. A value; read on any thread.
struct BundleDescription {
    explicit BundleDescription(const Platform::Url& itsBundle);

    Platform::Url bundle;
    std::string name;
    std::string identifier;
    std::optional<std::string> version;
    std::optional<std::string> copyright;
    std::optional<Platform::Date> installed;
    std::vector<BundleDescription> children;

    // Whether looking for the children has passed through the resources of the
    // application's own place too, and the first icon file that it met there.
    bool isIconFileKnown = false;
    std::optional<Platform::Url> iconFile;

    // Absent without a readable Info.plist that names an identifier, and, when
    // asked so, for the system maker's own.
    static std::optional<BundleDescription> read(const Platform::Url& bundle, bool includeChildren, bool excludeApple);
    // Of those that have one, in their order, with their children. Several
    // threads share the work where there is enough of it.
    static std::vector<BundleDescription> readAll(const std::vector<Platform::Url>& bundles, bool excludeApple);
    // Of the bundles inside a bundle, but not inside one another.
    static std::vector<BundleDescription> readChildren(const Platform::Url& bundle, bool excludeApple);

private:
    void readChildren(bool excludeApple);
};

// The dictionary's text under "CFBundleIdentifier" in the bundle's Info.plist.
std::optional<std::string> bundleIdentifierOf(const Platform::Url& bundle);

}  // namespace Lorrel
