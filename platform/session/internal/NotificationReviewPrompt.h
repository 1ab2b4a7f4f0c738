#pragma once

#include <string>

#include "platform/session/ReviewPrompt.h"

namespace Platform {

// Asks by a notification, whose button and body open the page.
class NotificationReviewPrompt final : public ReviewPrompt {
public:
    explicit NotificationReviewPrompt(std::string page) : page_(std::move(page)) {}

    // Without a page nothing is shown, and the log says so.
    void requestReview() override;

private:
    std::string page_;
};

}  // namespace Platform
