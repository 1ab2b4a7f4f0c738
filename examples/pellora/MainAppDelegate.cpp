#include "examples/pellora/MainAppDelegate.h"

#include <utility>

#include "examples/pellora/AutoStart.h"
#include "platform/runtime/Log.h"

namespace Pellora {

MainAppDelegate::MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, PresentSettings settings)
    : autoStart_(std::move(autoStart)), presentSettings_(std::move(settings)), settings_(presentSettings_())
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
    monitor_ = std::make_unique<Monitor>(settings_);
    warnings_ = std::make_shared<LimitWarnings>(monitor_->readings(), settings_.limits);
    monitor_->addListener(warnings_);
    display_ = statusDisplayFor(*monitor_, *autoStart_, settings_);
    monitor_->addListener(display_);
    settingsWatch_.emplace(*keptSettings(), [this] { settingsMayHaveChanged(); });
    settingsMayHaveChanged();  // saved while we were starting
}

void MainAppDelegate::settingsMayHaveChanged()
{
    Settings present = presentSettings_();
    if (present == settings_) return;
    const Settings former = std::exchange(settings_, std::move(present));
    monitor_->take(settings_);
    if (settings_.limits != former.limits) warnings_->take(settings_.limits);
    if (display_) display_->take(settings_);
    Platform::log("Pellora goes on with other settings");
}

}  // namespace Pellora
