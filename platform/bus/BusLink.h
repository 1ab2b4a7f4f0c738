#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <systemd/sd-bus.h>

#include "platform/runtime/Result.h"

namespace Platform {

// One life of a connection to a bus, from opening to loss. Only open() and
// wait() talk to the kernel beyond reading and writing what is possible now.
// Thread: one.
class BusLink {
public:
    // Starts to connect and to greet, without waiting for either.
    static Result<std::unique_ptr<BusLink>> open(const std::string& address);

    sd_bus* bus() const { return bus_.get(); }
    int descriptor() const { return sd_bus_get_fd(bus_.get()); }
    // The bus has answered the greeting.
    bool isReady() const { return sd_bus_is_ready(bus_.get()) > 0; }
    bool hasUnsent() const;

    // What the library waits for: epoll events, and the monotonic microsecond
    // at which it wants to be processed anyway (0: now; absent: never).
    std::uint32_t events() const;
    std::optional<std::uint64_t> deadline() const;

    // Reads and writes what is possible, at most `limit` messages. False when
    // the connection is lost. Never call it from a callback of the library.
    bool process(int limit);
    // Sleeps until there is something to process or the time is over.
    void wait(std::chrono::nanoseconds timeout) const;

private:
    struct Closer {
        void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    };

    explicit BusLink(sd_bus* bus) : bus_(bus) {}

    std::unique_ptr<sd_bus, Closer> bus_;
};

// The present time by the clock of BusLink::deadline().
std::uint64_t busMicroseconds();

}  // namespace Platform
