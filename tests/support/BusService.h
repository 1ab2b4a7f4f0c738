#pragma once

#include "platform/bus/BusConnection.h"
#include "tests/support/Eventually.h"

namespace Tests {

// Claims a name on the session bus and answers the calls to one object there,
// on the loop that makes it. It leaves the bus with its scope.
class BusService {
public:
    BusService(const char* name, const char* path, Platform::BusConnection::CallHandler answer)
    {
        using namespace Platform;
        bus->join();
        object_ = bus->exportObject(path, std::move(answer));
        const BusMessage claim =
            bus->newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName");
        sd_bus_message_append(claim.get(), "su", name, 4U);
        bool isThere = false;
        bus->call(claim, std::chrono::seconds(10), [&](const auto& reply) { isThere = reply.isSuccess(); });
        if (!eventually([&] { return isThere; })) throw std::runtime_error(std::string("no service ") + name);
    }

    std::shared_ptr<Platform::BusConnection> bus = Platform::BusConnection::create(Platform::RunLoop::current());

private:
    Platform::Subscription object_;
};

}  // namespace Tests
