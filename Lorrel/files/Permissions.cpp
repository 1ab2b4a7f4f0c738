#include "Lorrel/files/Permissions.h"

#include <cerrno>
#include <string>

#include "Lorrel/files/internal/SettingsUrl.h"
#include "platform/files/FileManager.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

namespace {

using Platform::FileManager;

// Below the home folder; nobody may list them without full disk access.
constexpr const char* protectedFolders[] = {
    "Library/Application Support/com.apple.TCC",
    "Library/Containers/com.apple.mail",
    "Library/Containers/com.apple.Safari",
    "Library/Cookies",
    "Library/Mail",
    "Library/Messages",
    "Library/Metadata/CoreSpotlight",
    "Library/Safari",
};

}  // namespace

bool Permissions::canReadTCCDatabase()
{
    const std::string library = Platform::SystemRoots::shared().library();
    return FileManager::shared().contents(library + "/Application Support/com.apple.TCC/TCC.db").isSuccess();
}

bool Permissions::hasFullDiskAccess()
{
    const std::string home = Platform::Environment::shared().homeDirectory();
    bool hasPassed = false;
    for (const char* name : protectedFolders) {
        const std::string folder = home + "/" + name;
        if (FileManager::shared().kind(folder) != Platform::PathKind::directory) continue;
        const auto listed = FileManager::shared().contentsOfDirectory(folder);
        // Only this refusal is the system's; others are of ordinary permissions.
        if (!listed && listed.error().code == EPERM) return false;
        hasPassed = true;
    }
    return hasPassed;
}

void Permissions::openPrivacySettings(PrivacyPage page)
{
    openSettingsUrl("x-apple.systempreferences:com.apple.preference.security?" + std::string(rawValue(page)));
}

void Permissions::openNotificationSettings()
{
    openSettingsUrl("x-apple.systempreferences:com.apple.preference.notifications");
}

}  // namespace Lorrel
