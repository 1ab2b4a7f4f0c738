#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// The pictures of applications, kept by name once found. Thread: main.
class FileIconManager {
public:
    static FileIconManager& shared();

    // Of the application at the location, or the one that the location lies in;
    // null for a location outside applications.
    Platform::ImageRef icon(const Platform::Url& location);
    // Of an installed application by its name. A system application's is read
    // from its bundle each time; any other is kept.
    Platform::ImageRef icon(std::string_view appName);
    // The same where it is known already which icon file comes first in the
    // resources of the application in the applications folder, or that none does.
    Platform::ImageRef icon(std::string_view appName, const std::optional<Platform::Url>& iconFile);
    // Those resources.
    static std::string resourcesFolder(std::string_view appName);

private:
    template <typename FindIconFile>
    Platform::ImageRef lookUp(std::string name, FindIconFile&& findIconFile);

    std::unordered_map<std::string, Platform::ImageRef> cache_;
};

// The application's name in a file name: all of it but every ".app".
std::string withoutAppEnding(std::string name);

}  // namespace Lorrel
