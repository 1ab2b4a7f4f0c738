#pragma once

#include "tests/support/BusService.h"

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

    void close(std::uint32_t id, std::uint32_t reason) { signal("NotificationClosed", "uu", id, reason); }
    void invoke(std::uint32_t id, const char* action) { signal("ActionInvoked", "us", id, action); }

private:
    static constexpr const char* name = "org.freedesktop.Notifications";
    static constexpr const char* path = "/org/freedesktop/Notifications";

    template <typename... Arguments>
    void signal(const char* member, const char* types, Arguments... arguments)
    {
        const Platform::BusMessage message = service_.bus->newSignal(path, name, member);
        sd_bus_message_append(message.get(), types, arguments...);
        service_.bus->send(message);
    }

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

    BusService service_{name, path, [this](Platform::BusMessage call) { return answer(std::move(call)); }};
};

}  // namespace Tests
