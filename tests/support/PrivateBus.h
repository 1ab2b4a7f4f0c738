#pragma once

#include <csignal>

#include "tests/support/ChildProcess.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryDirectory.h"

namespace Tests {

// A session bus of the test's own: a real dbus-daemon that starts no services,
// on a socket in a temporary folder. DBUS_SESSION_BUS_ADDRESS points to it for
// the scope. The daemon ends with the scope. Thread: main.
class PrivateBus {
public:
    PrivateBus();

    // Stays the same through stop() and start().
    const std::string& address() const { return address_; }

    // Ends the daemon without a good-bye; connections see their socket close.
    void stop();
    // Brings it back on the same address and returns once it listens.
    void start();

    // Stops the daemon from answering, as an overloaded machine would: sockets
    // stay open, nothing is read.
    void freeze() { daemon_->signal(SIGSTOP); }
    void thaw() { daemon_->signal(SIGCONT); }

private:
    TemporaryDirectory folder_;
    std::string address_;
    EnvironmentVariable variable_;
    std::optional<ChildProcess> daemon_;
};

}  // namespace Tests
