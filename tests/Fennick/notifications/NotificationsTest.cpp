#include <gtest/gtest.h>

#include "Fennick/notifications/Notifications.h"
#include "Fennick/notifications/ReviewController.h"
#include "platform/bundle/UserDefaults.h"
#include "platform/session/ReviewPrompt.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeUserNotificationCenter.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/TemporaryDirectory.h"

namespace Fennick {

namespace {

using Platform::AlertStyle;
using Platform::AuthorizationStatus;

TEST(Notifications, MayNotifyWhenAuthorizedAndShown)
{
    Tests::ReplacedUserNotificationCenter center;
    for (const auto status : {AuthorizationStatus::notDetermined, AuthorizationStatus::denied,
                              AuthorizationStatus::authorized, AuthorizationStatus::provisional}) {
        for (const auto style : {AlertStyle::none, AlertStyle::banner, AlertStyle::alert}) {
            center->current = {status, style};
            center->shown.clear();
            std::optional<bool> can;
            unsigned completions = 0;
            Notifications::canNotify([&](bool flag) { can = flag; });
            Notifications::send("t", "b", [&](const auto& error) { completions += error ? 100 : 1; });
            const bool isAuthorized = static_cast<int>(status) >= 2;
            EXPECT_EQ(can, isAuthorized && style != AlertStyle::none);
            EXPECT_EQ(completions, isAuthorized);
            EXPECT_EQ(center->shown.size(), completions);
        }
    }
}

TEST(Notifications, SendsEachUnderAnIdentifierOfItsOwnAndPassesAuthorizationAndErrorsOn)
{
    Tests::ReplacedUserNotificationCenter center;
    for (int count = 0; count < 2; ++count) Notifications::send("title", "body");
    const auto& first = center->shown.at(0);
    EXPECT_EQ(first.content.title + " " + first.content.body, "title body");
    EXPECT_NE(first.identifier, center->shown.at(1).identifier);

    std::vector<std::string> answers;
    const auto note = [&](const Platform::Result<bool>& granted) {
        answers.push_back(!granted ? granted.error().call : *granted ? "yes" : "no");
    };
    Notifications::requestAuthorization(note);
    center->current.authorizationStatus = AuthorizationStatus::denied;
    Notifications::requestAuthorization(note);
    center->failure = Platform::Error{"connect", "bus", 0, "none"};
    Notifications::requestAuthorization(note);
    Notifications::requestAuthorization();
    EXPECT_EQ(answers, (std::vector<std::string>{"yes", "no", "connect"}));
}

class CountingPrompt final : public Platform::ReviewPrompt {
public:
    void requestReview() override { ++count; }
    int count = 0;
};

TEST(ReviewController, PromptsOnceAndNotBeforeThreeDays)
{
    const Tests::TemporaryDirectory home;
    const Tests::ReplacedEnvironment environment(home.path());
    const Tests::ReplacedClock clock;
    const Tests::Replaced<Platform::ReviewPrompt, CountingPrompt> prompt;
    const Platform::Shared<ReviewController>::Override fresh;
    ReviewController& controller = ReviewController::shared();
    controller.requestReview("export");
    clock->advance(259199);
    for (const char* const occasion : {"export", "import"}) controller.requestReview(occasion);
    EXPECT_EQ(prompt->count, 0);
    clock->advance(1);
    controller.requestReview(std::nullopt);
    controller.requestReview("export");
    EXPECT_EQ(prompt->count, 1);
    clock->advance(1e6);
    // What was asked outlives the controller.
    const auto defaults = Platform::UserDefaults::suite("com.orvane.appreviews");
    EXPECT_EQ(defaults->boolean("export"), true);
    EXPECT_EQ(defaults->number("init_export"), 1704110400);
    ReviewController again(defaults);
    for (const char* const occasion : {"export", "import"}) again.requestReview(occasion);
    EXPECT_EQ(prompt->count, 2);
    ReviewController(nullptr).requestReview("without a store");
}

}  // namespace

}  // namespace Fennick
