#include "Lorrel/files/SystemSettings.h"

#include <string>

#include "Lorrel/files/internal/SettingsUrl.h"
#include "platform/files/IconService.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

namespace {

struct Addresses {
    const char* url;   // version 13 and later
    const char* pane;  // before, below the folder of panes
};

// In the order of the enumeration.
constexpr Addresses pages[] = {
    {"x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension", "Privacy.prefPane"},
    {"x-apple.systempreferences:com.apple.Sharing-Settings.extension", "SharingPref.prefPane"},
    {"x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles", "Privacy.prefPane"},
};

bool hasSettingsApplication()
{
    return Platform::OperatingSystemVersion::shared().isAtLeast(13);
}

std::string panePath(const std::string& name)
{
    return Platform::SystemRoots::shared().system() + "/Library/PreferencePanes/" + name;
}

}  // namespace

Platform::ImageRef SystemSettings::icon()
{
    const std::string path = hasSettingsApplication()
                                 ? Platform::SystemRoots::shared().system() + "/Applications/System Settings.app"
                                 : panePath("SharingPref.prefPane");
    return Platform::IconService::shared().iconForFile(path);
}

void SystemSettings::open()
{
    openSettingsUrl("x-apple.systempreferences:");
}

void SystemSettings::open(SystemSettingsPage page)
{
    const Addresses& addresses = pages[static_cast<std::size_t>(page)];
    if (hasSettingsApplication()) {
        openSettingsUrl(addresses.url);
    } else {
        openSettingsUrl(Platform::Url::fromPath(panePath(addresses.pane)).absoluteString());
    }
}

}  // namespace Lorrel
