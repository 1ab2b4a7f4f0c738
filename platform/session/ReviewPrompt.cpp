#include "platform/session/ReviewPrompt.h"

#include "platform/runtime/Shared.h"
#include "platform/session/internal/NotificationReviewPrompt.h"

namespace Platform {

ReviewPrompt& ReviewPrompt::shared()
{
    return Shared<ReviewPrompt>::get([] { return std::make_unique<NotificationReviewPrompt>(PELLORA_REVIEW_URL); });
}

}  // namespace Platform
