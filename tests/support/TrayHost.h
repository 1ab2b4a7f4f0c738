#pragma once

#include <cstdarg>

#include "platform/bus/BusConnection.h"
#include "tests/support/Eventually.h"

namespace Tests {

// A tray host with its watcher, on the session bus: it accepts status items,
// hears their signals and calls them as a panel would. It lives on the test's
// own loop. Thread: main.
class TrayHost {
public:
    using Message = Platform::BusMessage;

    explicit TrayHost(bool answers = true) : answers_(answers)
    {
        using namespace Platform;
        const auto take = [this](BusMessage message) { signals.push_back(textOf(std::move(message))); };
        for (const char* interface : {"org.kde.StatusNotifierItem", "com.canonical.dbusmenu"}) {
            subscriptions_.push_back(bus_->matchRule("type='signal',interface='" + std::string(interface) + "'"));
            subscriptions_.push_back(bus_->onSignal(interface, "", take));
        }
        subscriptions_.push_back(
            bus_->exportObject("/StatusNotifierWatcher", [this](BusMessage call) { return accept(std::move(call)); }));
        request("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName", "su",
                "org.kde.StatusNotifierWatcher", 0U);
    }

    // The bus name of the latest item, and how many came.
    std::string item;
    int registrations = 0;
    // "NewTitle", "NewStatus Passive", ...
    std::vector<std::string> signals;

    bool waitForItem(int count = 1)
    {
        return eventually([&] { return registrations >= count; });
    }

    // Calls and waits; the answer, or an empty message for an error or none.
    template <typename... Arguments>
    Message request(const char* service, const char* path, const char* interface, const char* member,
                    const char* types = "", Arguments... arguments)
    {
        Message call = bus_->newCall(service, path, interface, member);
        if (!call || sd_bus_message_append(call.get(), types, arguments...) < 0) return {};
        std::optional<Platform::Result<Message>> result;
        bus_->call(call, std::chrono::seconds(5), [&](Platform::Result<Message> reply) { result = std::move(reply); });
        eventually([&] { return result.has_value(); });
        return result && *result ? result->value() : Message();
    }
    template <typename... Arguments>
    Message callItem(const char* member, const char* types = "", Arguments... arguments)
    {
        return request(item.c_str(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", member, types, arguments...);
    }
    template <typename... Arguments>
    Message callMenu(const char* member, const char* types = "", Arguments... arguments)
    {
        return request(item.c_str(), "/MenuBar", "com.canonical.dbusmenu", member, types, arguments...);
    }
    // A property of the item, entered as far as its value.
    Message property(const char* name, const char* type)
    {
        Message value = request(item.c_str(), "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get", "ss",
                                "org.kde.StatusNotifierItem", name);
        if (value) sd_bus_message_enter_container(value.get(), 'v', type);
        return value;
    }
    std::string text(const char* name)
    {
        Message value = property(name, "s");
        return value ? value.readText().value_or("no text") : "no value";
    }

    struct Pixmap {
        int width = 0, height = 0;
        std::vector<std::uint32_t> pixels;  // alpha, red, green, blue from the highest byte
    };
    Pixmap pixmap()
    {
        Pixmap pixmap;
        Message value = property("IconPixmap", "a(iiay)");
        if (!value || sd_bus_message_enter_container(value.get(), 'a', "(iiay)") <= 0) return pixmap;
        if (sd_bus_message_enter_container(value.get(), 'r', "iiay") <= 0) return pixmap;
        sd_bus_message_read(value.get(), "ii", &pixmap.width, &pixmap.height);
        const void* bytes = nullptr;
        std::size_t size = 0;
        sd_bus_message_read_array(value.get(), 'y', &bytes, &size);
        for (std::size_t at = 0; at + 3 < size; at += 4) {
            const auto* byte = static_cast<const std::uint8_t*>(bytes) + at;
            pixmap.pixels.push_back(static_cast<std::uint32_t>(byte[0]) << 24 |
                                    static_cast<std::uint32_t>(byte[1]) << 16 |
                                    static_cast<std::uint32_t>(byte[2]) << 8 | byte[3]);
        }
        return pixmap;
    }

private:
    Message accept(Message call)
    {
        item = call.sender();
        ++registrations;
        sd_bus_message* answer = nullptr;
        if (answers_) sd_bus_message_new_method_return(call.get(), &answer);
        return Message(answer);
    }
    static std::string textOf(Message message)
    {
        const auto text = message.readText();
        return message.member() + (text ? ' ' + *text : "");
    }

    std::shared_ptr<Platform::BusConnection> bus_ = Platform::BusConnection::create(Platform::RunLoop::main());
    std::vector<Platform::Subscription> subscriptions_;
    bool answers_;
};

}  // namespace Tests
