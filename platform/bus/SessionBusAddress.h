#pragma once

#include <optional>
#include <string>

namespace Platform {

// Where the user's session bus listens: DBUS_SESSION_BUS_ADDRESS, else the
// socket "bus" of the runtime folder; absent when there is neither. Without
// the server's identity, so that a bus that was restarted is the same address.
std::optional<std::string> sessionBusAddress();

}  // namespace Platform
