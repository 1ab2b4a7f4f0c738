#pragma once

#include <chrono>
#include <memory>

#include "platform/session/UserNotificationCenter.h"

namespace Platform {

class BusConnection;
class RunLoop;

// Notifications through the desktop's notification server on the session bus.
// A few are under way at a time, the others follow as the server answers.
class DBusUserNotificationCenter final : public UserNotificationCenter {
public:
    // Works and calls back on the loop, which is also the connection's. A server
    // that does not answer before the deadline is an error.
    DBusUserNotificationCenter(std::shared_ptr<BusConnection> connection, RunLoop& loop,
                               std::chrono::nanoseconds deadline = std::chrono::seconds(10));
    ~DBusUserNotificationCenter() override;

    void requestAuthorization(unsigned options, std::function<void(Result<bool>)> completion) override;
    void settings(std::function<void(const UserNotificationSettings&)> completion) override;
    void add(const UserNotificationRequest& request, std::function<void(std::optional<Error>)> completion) override;

private:
    struct State;
    std::shared_ptr<State> state_;
    RunLoop& loop_;
};

}  // namespace Platform
