#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/Settings.h"
#include "examples/pellora/SettingsWatch.h"
#include "examples/pellora/StatusDisplay.h"
#include "examples/pellora/watch/LimitWarnings.h"
#include "platform/runtime/Application.h"

namespace Pellora {

// The running application. Thread: main.
class MainAppDelegate : public Platform::ApplicationDelegate {
public:
    // The settings that hold now, those that are kept included.
    using PresentSettings = std::function<Settings()>;

    MainAppDelegate(std::unique_ptr<Lorrel::IAutoStartController> autoStart, PresentSettings settings);

    void applicationDidFinishLaunching() override;

private:
    void settingsMayHaveChanged();

    const std::unique_ptr<Lorrel::IAutoStartController> autoStart_;
    const PresentSettings presentSettings_;
    Settings settings_;
    std::unique_ptr<Monitor> monitor_;
    std::shared_ptr<LimitWarnings> warnings_;
    std::shared_ptr<StatusDisplay> display_;
    std::optional<SettingsWatch> settingsWatch_;
};

}  // namespace Pellora
