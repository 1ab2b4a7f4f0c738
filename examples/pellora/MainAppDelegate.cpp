#include "examples/pellora/MainAppDelegate.h"

#include <utility>

#include "examples/pellora/AutoStart.h"
#include "examples/pellora/StatusDisplay.h"
#include "platform/runtime/Log.h"

namespace Pellora {

MainAppDelegate::MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, Settings settings)
    : autoStart_(std::move(autoStart)), settings_(std::move(settings))
{
    prepareDesktop();
}

void MainAppDelegate::applicationDidFinishLaunching()
{
    autoStart_->handleMainAppLaunch();
    // A launcher that has started us waits for this, whoever starts us at the next login.
    autoStartController(Starter::launcher)->handleMainAppLaunch();
    Platform::log(autoStart_->isEnabled() ? "Pellora runs; it starts at login"
                                          : "Pellora runs; it does not start at login");
    monitor_ = monitorFor(settings_);
    warnings_ = std::make_shared<LimitWarnings>(monitor_->readings(), settings_.limits);
    monitor_->addListener(warnings_);
    display_ = statusDisplayFor(*monitor_, *autoStart_, settings_);
    monitor_->addListener(display_);
}

}  // namespace Pellora
