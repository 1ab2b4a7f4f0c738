#pragma once

#include <csignal>

#include "tests/support/ChildProcess.h"
#include "tests/support/EnvironmentVariable.h"

namespace Tests {

// An X display without a screen for the scope: a real Xvfb on a number that is
// free. DISPLAY points to it; WAYLAND_DISPLAY is unset. Thread: main.
class Display {
public:
    explicit Display(const std::string& screen = "1280x800x24");
    ~Display();

    // The server accepts, and does not answer.
    void freeze() { server_.signal(SIGSTOP); }
    void thaw() { server_.signal(SIGCONT); }

private:
    ChildProcess server_;
    EnvironmentVariable display_;
    EnvironmentVariable wayland_{"WAYLAND_DISPLAY", std::nullopt};
};

// Where a test keeps the picture NAME.png of a display: below the folder that
// PELLORA_SCREENSHOTS names, else below "screenshots" of the build. The folder is made.
std::string screenshotPath(const std::string& name);

}  // namespace Tests
