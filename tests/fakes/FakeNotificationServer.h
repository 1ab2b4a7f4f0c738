#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/bus/BusConnection.h"
#include "platform/runtime/RunLoop.h"

namespace Tests {

// A notification server on the session bus, served by the current run loop; it
// keeps what it was asked to show. It leaves the bus with its scope.
class FakeNotificationServer {
public:
    struct Shown {
        std::string title;
        std::string body;
    };

    bool takesMarkup = true;
    bool isHanging = false;
    std::vector<Shown> shown;

    FakeNotificationServer() : connection_(Platform::BusConnection::create(Platform::RunLoop::current()))
    {
        connection_->join();
        object_ = connection_->exportObject(path, [this](Platform::BusMessage call) { return answer(call); });
        Platform::BusMessage claim = connection_->newCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                          "org.freedesktop.DBus", "RequestName");
        sd_bus_message_append(claim.get(), "su", service, 4);
        connection_->call(claim, std::chrono::seconds(5), [this](const auto& reply) { isThere_ = reply.isSuccess(); });
    }

    bool isThere() const { return isThere_; }

    void close(std::uint32_t id, std::uint32_t reason)
    {
        Platform::BusMessage signal = connection_->newSignal(path, service, "NotificationClosed");
        sd_bus_message_append(signal.get(), "uu", id, reason);
        connection_->send(signal);
    }
    void invoke(std::uint32_t id, const char* action)
    {
        Platform::BusMessage signal = connection_->newSignal(path, service, "ActionInvoked");
        sd_bus_message_append(signal.get(), "us", id, action);
        connection_->send(signal);
    }

private:
    static constexpr const char* service = "org.freedesktop.Notifications";
    static constexpr const char* path = "/org/freedesktop/Notifications";

    Platform::BusMessage answer(Platform::BusMessage call)
    {
        sd_bus_message* reply = nullptr;
        if (isHanging) return {};
        sd_bus_message_new_method_return(call.get(), &reply);
        if (call.member() == "GetCapabilities") {
            sd_bus_message_append(reply, "as", 1, takesMarkup ? "body-markup" : "body");
        } else {
            call.readText();
            sd_bus_message_skip(call.get(), "us");
            std::string title = call.readText().value_or("");
            shown.push_back({std::move(title), call.readText().value_or("")});
            sd_bus_message_append(reply, "u", static_cast<std::uint32_t>(shown.size()));
        }
        return Platform::BusMessage(reply);
    }

    std::shared_ptr<Platform::BusConnection> connection_;
    Platform::Subscription object_;
    bool isThere_ = false;
};

}  // namespace Tests
