#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/bus/BusConnection.h"
#include "platform/session/UserNotificationCenter.h"

namespace Platform {

// The calls and signals of org.freedesktop.Notifications. Nothing waits; what
// does not come in time is an error. Thread: that of the connection's loop.
class NotificationServer {
public:
    struct Events {
        std::function<void(std::uint32_t id, UserNotificationResponse)> ended;
        // Another server took over, or none is left; identifiers begin anew.
        std::function<void()> changed;
    };

    // Every call fails that is not answered before the deadline.
    NotificationServer(std::shared_ptr<BusConnection> connection, std::chrono::nanoseconds deadline, Events events);

    // Whether a server runs or would be started for us; an error without a bus.
    void isThere(std::function<void(Result<bool>)> answer);
    // Whether it reads bodies as markup; asked of each server once.
    void takesMarkup(std::function<void(bool)> answer);
    // Shows it; the server's identifier for it.
    void notify(const UserNotificationContent& content, bool takesMarkup,
                std::function<void(Result<std::uint32_t>)> answer);

private:
    void listen();
    BusMessage newDaemonCall(const char* member);
    void closed(BusMessage message);
    void invoked(BusMessage message);
    void ownerChanged(BusMessage message);

    std::shared_ptr<BusConnection> connection_;
    const std::chrono::nanoseconds deadline_;
    Events events_;
    std::optional<bool> takesMarkup_;
    std::vector<Subscription> subscriptions_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace Platform
