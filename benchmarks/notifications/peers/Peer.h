#pragma once

#include <functional>
#include <string>

namespace Bench {

// One way to signal over the session bus: the same wire signal for all, with
// a match rule on the name.
class Peer {
public:
    using Handler = std::function<void(const std::string& object)>;

    virtual ~Peer() = default;
    // Returns once the bus has agreed.
    virtual void listen(const std::string& name, Handler handler) = 0;
    // Has left the process when it returns.
    virtual void post(const std::string& name, const std::string& object) = 0;
    virtual void run() = 0;
    virtual void stop() = 0;
};

// wait             says "ready", ends by "killme"
// echo             says "ready", answers every "ping" by "pong"
// ping COUNT       prints the median of half a round trip in microseconds
// collect COUNT    says "ready", prints the seconds from the first to the last "burst"
// burst COUNT      posts "burst"
int peerMain(int argc, char** argv, Peer& peer);

inline constexpr const char* path = "/com/orvane/DistributedNotification";
inline constexpr const char* interface = "com.orvane.DistributedNotification";
inline constexpr const char* member = "Posted";

}  // namespace Bench
