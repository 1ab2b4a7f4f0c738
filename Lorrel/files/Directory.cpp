#include "Lorrel/files/Directory.h"

#include <string_view>
#include <vector>

#include "platform/files/FileManager.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

namespace {

using Platform::Environment;
using Platform::Url;

// The folder of an account, given by its home or by any folder inside that
// (an application's container).
Url userFolder()
{
    const auto components = Platform::pathComponents(Environment::shared().homeDirectory());
    if (components.size() >= 3) return Url::fromPath("/" + components[1] + "/" + components[2], true);
    return Url::fromPath("/Users/" + Environment::shared().userName(), true);
}

Url below(Directory parent, std::initializer_list<std::string_view> names)
{
    Url folder = url(parent);
    for (const auto name : names) folder = folder.appendingPathComponent(name, true);
    return folder;
}

Url inAccount(std::string_view name)
{
    return Url::fromPath("/Users/" + Environment::shared().userName() + std::string(name));
}

}  // namespace

Url url(Directory directory)
{
    switch (directory) {
        case Directory::applications:
            return Url::fromPath(Platform::SystemRoots::shared().applications());
        case Directory::user:
            return userFolder();
        case Directory::library:
            return below(Directory::user, {"Library"});
        case Directory::preferences:
            return below(Directory::library, {"Preferences"});
        case Directory::caches:
            return below(Directory::library, {"Caches"});
        case Directory::applicationSupport:
            return below(Directory::library, {"Application Support"});
        case Directory::containers:
            return below(Directory::library, {"Containers"});
        case Directory::savedState:
            return below(Directory::library, {"Saved Application State"});
        case Directory::trash:
            return below(Directory::library, {".Trash"});
        case Directory::appleMusicCache:
            return below(Directory::caches, {"com.apple.Music"});
        case Directory::safariCache:
            return below(Directory::caches, {"com.apple.safari"});
        case Directory::spotifyCache:
            return below(Directory::caches, {"com.spotify.client"});
        case Directory::mailAttachments:
            return below(Directory::library, {"Containers", "com.apple.mail", "Data", "Library", "Mail Downloads"});
        case Directory::userLaunchAgents:
            return below(Directory::library, {"LaunchAgents"});
        case Directory::userLaunchDaemons:
            return below(Directory::library, {"LaunchDaemons"});
        case Directory::xcode:
            return below(Directory::library, {"Developer", "Xcode"});
        case Directory::volumes:
            return Url::fromPath("/Volumes");
        case Directory::documents:
            return inAccount("/Documents");
        case Directory::downloads:
            return inAccount("/Downloads");
        case Directory::appDocuments:
            return Platform::documentsFolder();
        case Directory::safari:
            return Url::fromPath(url(Directory::library).path() + "/Safari");
        case Directory::appleMapsCache:
            return below(Directory::containers, {"com.apple.Maps"});
    }
    return userFolder();
}

}  // namespace Lorrel
