#include "platform/session/internal/NotificationReviewPrompt.h"

#include <cerrno>

#include "platform/runtime/Log.h"
#include "platform/session/UserNotificationCenter.h"
#include "platform/session/Workspace.h"

namespace Platform {

namespace {

void open(const std::string& page)
{
    const auto url = Url::parse(page);
    if (!url) return log("review prompt: no URL: " + page);
    const auto opened = Workspace::shared().openURL(*url);
    if (!opened) log("review prompt: " + opened.error().message());
}

}  // namespace

void NotificationReviewPrompt::requestReview()
{
    if (page_.empty()) return log("review prompt: this build names no page for reviews");
    const std::string program = program_invocation_short_name;
    UserNotificationRequest request{
        "review", {"Do you like " + program + "?", "Tell others what you think of it.", false, {}}, nullptr};
    request.content.actions = {{"default", "Review"}, {"review", "Write a review"}};
    request.onResponse = [page = page_](const UserNotificationResponse& response) {
        if (response.kind == UserNotificationResponse::Kind::action) open(page);
    };
    UserNotificationCenter::shared().add(request, nullptr);
}

}  // namespace Platform
