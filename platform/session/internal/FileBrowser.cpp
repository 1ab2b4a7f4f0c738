#include "platform/session/internal/FileBrowser.h"

#include <chrono>
#include <utility>

#include "platform/bus/BusConnection.h"

namespace Platform {

bool showInFileBrowser(const Url& entry, std::function<void(const Error&)> onRefusal)
{
    const auto bus = BusConnection::session();
    if (!bus->join()) return false;
    constexpr const char* name = "org.freedesktop.FileManager1";
    const BusMessage message = bus->newCall(name, "/org/freedesktop/FileManager1", name, "ShowItems");
    const std::string location = entry.absoluteString();
    // The locations, and an identifier of the start-up that nobody follows here.
    if (!message || sd_bus_message_append(message.get(), "ass", 1, location.c_str(), "") < 0) return false;
    bus->call(message, std::chrono::seconds(10), [onRefusal = std::move(onRefusal)](Result<BusMessage> reply) {
        if (!reply) onRefusal(reply.error());
    });
    bus->flush();
    return true;
}

}  // namespace Platform
