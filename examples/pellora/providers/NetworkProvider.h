#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "examples/pellora/providers/Provider.h"
#include "examples/pellora/providers/SystemFile.h"

namespace Pellora {

// Bytes a second that came in and went out since the last update ("network.in",
// "network.out"), from /proc/net/dev: those of the interfaces that are devices,
// since bridges and tunnels would count them twice; where none is a device (in
// a container), of all but the loop-back.
class NetworkProvider final : public Provider {
public:
    NetworkProvider();
    void update(double elapsed) override;

private:
    struct Traffic {
        std::uint64_t received = 0;
        std::uint64_t sent = 0;
    };
    struct Interface {
        bool isDevice = false;
        std::optional<Traffic> last;
        bool isSeen = false;
    };

    static std::optional<Traffic> trafficFrom(std::string_view columns);
    Interface& interface(std::string_view name);
    // What has come and gone since the last call.
    Traffic traffic();
    void forgetVanished();

    SystemFile file_;
    std::map<std::string, Interface, std::less<>> interfaces_;
    NumberReading in_;
    NumberReading out_;
};

}  // namespace Pellora
