#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Result.h"

namespace Platform {

enum class AuthorizationStatus { notDetermined = 0, denied = 1, authorized = 2, provisional = 3 };
enum class AlertStyle { none = 0, banner = 1, alert = 2 };

// What a program may ask to use; the bits add up.
namespace AuthorizationOptions {
constexpr unsigned badge = 1;
constexpr unsigned sound = 2;
constexpr unsigned alert = 4;
}  // namespace AuthorizationOptions

struct UserNotificationSettings {
    AuthorizationStatus authorizationStatus = AuthorizationStatus::notDetermined;
    AlertStyle alertStyle = AlertStyle::none;

    friend bool operator==(const UserNotificationSettings&, const UserNotificationSettings&) = default;
};

// A button of a notification; the key "default" stands for the notification itself.
struct UserNotificationAction {
    std::string key;
    std::string label;
};

struct UserNotificationContent {
    std::string title;
    std::string body;
    bool hasDefaultSound = false;
    std::vector<UserNotificationAction> actions = {};
};

// How the user, or time, ended a notification.
struct UserNotificationResponse {
    enum class Kind { expired, dismissed, closed, action };
    Kind kind = Kind::closed;
    std::string action;  // its key
};

// A notification to be delivered at once.
struct UserNotificationRequest {
    std::string identifier;
    UserNotificationContent content;
    // Called at most once, when the notification has ended.
    std::function<void(const UserNotificationResponse&)> onResponse = nullptr;
};

// Shows notifications to the user. Nothing waits; callbacks come later, on the
// main run loop. Thread: any.
class UserNotificationCenter {
public:
    static UserNotificationCenter& shared();
    virtual ~UserNotificationCenter() = default;

    // Whether the program may notify with these options.
    virtual void requestAuthorization(unsigned options, std::function<void(Result<bool>)> completion) = 0;
    virtual void settings(std::function<void(const UserNotificationSettings&)> completion) = 0;
    // The completion, which may be empty, gets the error, or none once it is delivered.
    virtual void add(const UserNotificationRequest& request, std::function<void(std::optional<Error>)> completion) = 0;
};

}  // namespace Platform
