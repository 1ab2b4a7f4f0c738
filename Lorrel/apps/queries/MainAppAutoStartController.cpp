#include "Lorrel/apps/queries/MainAppAutoStartController.h"

#include <utility>

using Platform::ApplicationService;
using Platform::ApplicationServices;

namespace Lorrel {

namespace {

// Callers read isEnabled() to learn the outcome.
void drop(const Platform::Result<void>&) {}

}  // namespace

MainAppAutoStartController::MainAppAutoStartController(std::optional<std::string> starterIdentifier,
                                                       std::shared_ptr<ApplicationService> mainItem)
    : starterIdentifier_(std::move(starterIdentifier)), mainItem_(std::move(mainItem))
{
}

MainAppAutoStartController::MainAppAutoStartController(std::shared_ptr<ApplicationService> mainItem)
    : MainAppAutoStartController(std::nullopt, std::move(mainItem))
{
}

bool MainAppAutoStartController::isEnabled() const
{
    return ApplicationServices::shared().mainAppService()->status() == ApplicationService::Status::enabled;
}

void MainAppAutoStartController::handleMainAppLaunch()
{
    if (!starterIdentifier_) return;
    const auto starter = ApplicationServices::shared().loginItemService(*starterIdentifier_);
    const auto mainApp = ApplicationServices::shared().mainAppService();
    if (starter->status() != ApplicationService::Status::enabled) return;
    drop(starter->unregister());
    drop(mainApp->register_());
}

void MainAppAutoStartController::setEnabled(bool isEnabled)
{
    if (mainItem_->status() == ApplicationService::Status::requiresApproval) {
        ApplicationServices::shared().openSystemSettingsLoginItems();
    } else if (isEnabled) {
        enable();
    } else {
        disable();
    }
}

void MainAppAutoStartController::enable()
{
    drop(mainItem_->register_());
}
void MainAppAutoStartController::disable()
{
    drop(mainItem_->unregister());
}

}  // namespace Lorrel
