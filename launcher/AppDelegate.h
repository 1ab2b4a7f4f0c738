#pragma once

#include <memory>
#include <string>

#include "platform/runtime/Application.h"

namespace Launcher {

// Starts the main application if it does not run, then waits until that asks
// the launcher to end. Thread: main.
class AppDelegate : public Platform::ApplicationDelegate, public std::enable_shared_from_this<AppDelegate> {
public:
    static std::shared_ptr<AppDelegate> create();

    // The bundle identifier of the main application.
    const std::string& mainIdentifier() const { return mainIdentifier_; }

    void applicationDidFinishLaunching() override { launchMainApp(); }
    // Ends the launcher; also called by the "killme" notification.
    void terminate();
    // Opens the bundle four levels above the launcher's own, unless the main
    // application runs: then, and where no such bundle can be, the launcher ends.
    void launchMainApp();

private:
    AppDelegate() = default;

    const std::string mainIdentifier_ = "com.orvane.pellora";
};

}  // namespace Launcher
