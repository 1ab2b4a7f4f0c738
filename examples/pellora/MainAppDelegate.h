#pragma once

#include <memory>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/Settings.h"
#include "examples/pellora/watch/LimitWarnings.h"
#include "platform/runtime/Application.h"

namespace Pellora {

// The running application. Thread: main.
class MainAppDelegate : public Platform::ApplicationDelegate {
public:
    MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, Settings settings);

    void applicationDidFinishLaunching() override;

private:
    const std::unique_ptr<Lorrel::IAutoStartController> autoStart_;
    const Settings settings_;
    std::unique_ptr<Monitor> monitor_;
    std::shared_ptr<LimitWarnings> warnings_;
    std::shared_ptr<Fennick::DataProviderContainerDelegate> display_;
};

}  // namespace Pellora
