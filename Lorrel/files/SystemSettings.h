#pragma once

#include "platform/runtime/Image.h"

namespace Lorrel {

enum class SystemSettingsPage { privacy, sharing, fullDiskAccess };

// The settings of the system: the application of version 13 and later, or the
// panes of earlier ones. Thread: main.
class SystemSettings {
public:
    SystemSettings() = delete;

    static Platform::ImageRef icon();
    // At their start page.
    static void open();
    static void open(SystemSettingsPage page);
};

}  // namespace Lorrel
