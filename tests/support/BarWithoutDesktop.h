#pragma once

#include "platform/menubar/StatusBar.h"
#include "tests/examples/pellora/Machine.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/EnvironmentVariable.h"

namespace Tests {

// A status bar of its own that no desktop shows, on a machine and a clock of the test.
struct BarWithoutDesktop {
    EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
    EnvironmentVariable noRuntime{"XDG_RUNTIME_DIR", std::nullopt};
    Platform::Shared<Platform::StatusBar>::Override freshBar;
    Machine machine;
    ReplacedClock clock;
};

}  // namespace Tests
