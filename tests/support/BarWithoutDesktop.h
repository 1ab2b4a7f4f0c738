#pragma once

#include "platform/menubar/StatusBar.h"
#include "platform/runtime/Shared.h"
#include "tests/support/EnvironmentVariable.h"

namespace Tests {

// A status bar of its own that no desktop shows.
struct BarWithoutDesktop {
    EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
    EnvironmentVariable noRuntime{"XDG_RUNTIME_DIR", std::nullopt};
    Platform::Shared<Platform::StatusBar>::Override freshBar;
};

}  // namespace Tests
