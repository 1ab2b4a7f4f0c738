#include "Lorrel/apps/queries/LoginItemAutoStartController.h"

#include <utility>

#include "Lorrel/apps/Apps.h"
#include "Lorrel/apps/queries/DistributedNotifications.h"

namespace Lorrel {

std::optional<std::vector<Platform::JobDictionary>> LoginItemEnabledJobsProvider::jobDictionaries() const
{
    return Platform::LoginItems::shared().jobDictionaries();
}

LoginItemAutoStartController::LoginItemAutoStartController(std::optional<std::string> bundleIdentifier,
                                                           std::string starterIdentifier)
    : starterIdentifier_(std::move(starterIdentifier)), bundleIdentifier_(std::move(bundleIdentifier))
{
}

bool LoginItemAutoStartController::isEnabled() const
{
    const auto jobs = jobDictionaries();
    if (!jobs) return false;
    for (const auto& job : *jobs) {
        const auto* label = job.find("Label");
        if (!label || !label->text() || label->text()->find(starterIdentifier_) == std::string::npos) continue;
        const auto* onDemand = job.find("OnDemand");
        return onDemand && onDemand->boolean().value_or(false);
    }
    return false;
}

void LoginItemAutoStartController::handleMainAppLaunch()
{
    if (Apps::isRunning(starterIdentifier_)) DistributedNotifications::post("killme", bundleIdentifier_);
}

void LoginItemAutoStartController::setEnabled(bool isEnabled)
{
    // Callers read isEnabled() to learn the outcome.
    [[maybe_unused]] const auto outcome = Platform::LoginItems::shared().setEnabled(starterIdentifier_, isEnabled);
}

}  // namespace Lorrel
