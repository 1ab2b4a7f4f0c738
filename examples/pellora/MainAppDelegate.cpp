#include "examples/pellora/MainAppDelegate.h"

#include <utility>

#include "platform/runtime/Log.h"

namespace Pellora {

MainAppDelegate::MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart)
    : autoStart_(std::move(autoStart))
{
}

void MainAppDelegate::applicationDidFinishLaunching()
{
    autoStart_->handleMainAppLaunch();
    Platform::log(autoStart_->isEnabled() ? "Pellora runs; it starts at login"
                                          : "Pellora runs; it does not start at login");
}

}  // namespace Pellora
