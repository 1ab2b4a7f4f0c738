#include "Fennick/notifications/ReviewController.h"

#include <utility>

#include "platform/bundle/UserDefaults.h"
#include "platform/runtime/Clock.h"
#include "platform/runtime/Shared.h"
#include "platform/session/ReviewPrompt.h"

namespace Fennick {

ReviewController& ReviewController::shared()
{
    return Platform::Shared<ReviewController>::get(
        [] { return std::make_unique<ReviewController>(Platform::UserDefaults::suite("com.orvane.appreviews")); });
}

ReviewController::ReviewController(std::shared_ptr<Platform::UserDefaults> defaults) : defaults_(std::move(defaults)) {}

bool ReviewController::isDue(std::string_view occasion)
{
    if (!defaults_) return false;
    const std::string key = initialCallKey_ + '_' + std::string(occasion);
    const double firstSeen = defaults_->number(key).value_or(0);
    const double now = Platform::Clock::shared().wallSeconds();
    if (firstSeen != 0) return firstSeen + interval_ <= now;
    defaults_->set(key, now);
    return false;
}

void ReviewController::requestReview(std::optional<std::string_view> occasion)
{
    if (!occasion) return;
    if (defaults_ && defaults_->boolean(*occasion).value_or(false)) return;
    if (!isDue(*occasion)) return;
    Platform::ReviewPrompt::shared().requestReview();
    defaults_->set(*occasion, true);
}

}  // namespace Fennick
