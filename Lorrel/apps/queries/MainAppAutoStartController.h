#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "platform/session/ApplicationService.h"

namespace Lorrel {

// Starts the main application at login by registering it as an application
// service, and moves users away from an older starter application. Thread: main.
class MainAppAutoStartController : public IAutoStartController {
public:
    MainAppAutoStartController(std::optional<std::string> starterIdentifier,
                               std::shared_ptr<Platform::ApplicationService> mainItem);
    // Without an older starter.
    explicit MainAppAutoStartController(std::shared_ptr<Platform::ApplicationService> mainItem);

    const std::optional<std::string>& starterIdentifier() const { return starterIdentifier_; }
    const std::shared_ptr<Platform::ApplicationService>& mainItem() const { return mainItem_; }

    // Of the platform's main-app service, whatever the main item is.
    bool isEnabled() const override;
    // Replaces an enabled older starter by the main-app service.
    void handleMainAppLaunch() override;
    // Only shows the settings page while the main item awaits the user's approval.
    void setEnabled(bool isEnabled) override;
    void enable() override;
    void disable() override;

private:
    std::optional<std::string> starterIdentifier_;
    std::shared_ptr<Platform::ApplicationService> mainItem_;
};

}  // namespace Lorrel
