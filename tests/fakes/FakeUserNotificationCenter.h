#pragma once

#include "platform/session/UserNotificationCenter.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A desktop that shows what it is given and answers at once. Thread: one.
class FakeUserNotificationCenter final : public Platform::UserNotificationCenter {
public:
    // Set by tests.
    Platform::UserNotificationSettings current{Platform::AuthorizationStatus::authorized, Platform::AlertStyle::banner};
    std::optional<Platform::Error> failure;
    std::vector<Platform::UserNotificationRequest> shown;

    void requestAuthorization(unsigned, std::function<void(Platform::Result<bool>)> completion) override
    {
        if (failure) return completion(*failure);
        completion(current.authorizationStatus == Platform::AuthorizationStatus::authorized);
    }
    void settings(std::function<void(const Platform::UserNotificationSettings&)> completion) override
    {
        completion(current);
    }
    void add(const Platform::UserNotificationRequest& request,
             std::function<void(std::optional<Platform::Error>)> completion) override
    {
        if (!failure) shown.push_back(request);
        if (completion) completion(failure);
    }

    // The user acts on the last notification.
    void respond(const Platform::UserNotificationResponse& response)
    {
        const auto handler = std::exchange(shown.back().onResponse, nullptr);
        if (handler) handler(response);
    }
};

using ReplacedUserNotificationCenter = Replaced<Platform::UserNotificationCenter, FakeUserNotificationCenter>;

}  // namespace Tests
