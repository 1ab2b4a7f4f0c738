#pragma once

#include "Lorrel/files/PrivacyPage.h"

namespace Lorrel {

// What only the user can grant, found out by trying, and the settings pages
// where it is granted. Nothing here asks the user. Thread: any; pages main.
class Permissions {
public:
    Permissions() = delete;

    // Whether the system-wide privacy database can be read.
    static bool canReadTCCDatabase();
    // Whether no protected folder of the user is refused, and at least one exists.
    static bool hasFullDiskAccess();

    static void openPrivacySettings(PrivacyPage page);
    static void openNotificationSettings();
};

}  // namespace Lorrel
