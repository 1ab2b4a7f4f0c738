#pragma once

#include <memory>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "platform/runtime/Application.h"

namespace Pellora {

// The running application. Thread: main.
class MainAppDelegate : public Platform::ApplicationDelegate {
public:
    explicit MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart);

    void applicationDidFinishLaunching() override;

private:
    std::unique_ptr<Lorrel::IAutoStartController> autoStart_;
};

}  // namespace Pellora
