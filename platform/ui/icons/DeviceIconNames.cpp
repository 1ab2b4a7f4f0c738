#include "platform/ui/icons/DeviceIconNames.h"

#include <algorithm>
#include <iterator>

namespace Platform {
namespace {

struct Kind {
    std::string_view beginning;
    std::vector<std::string> names;
};

// A trailing dash or dot keeps out other words that begin alike, as "macbinary" does.
const Kind kinds[] = {
    {"com.apple.macbook", {"computer-laptop", "laptop", "computer"}},
    {"com.apple.mac.laptop", {"computer-laptop", "laptop", "computer"}},
    {"com.apple.macmini", {"computer"}},
    {"com.apple.macpro", {"computer"}},
    {"com.apple.macstudio", {"computer"}},
    {"com.apple.mac-", {"computer"}},
    {"com.apple.mac.", {"computer"}},
    {"com.apple.imac", {"computer"}},
    {"com.apple.xserve", {"network-server", "computer"}},
    {"com.apple.iphone", {"phone"}},
    {"com.apple.ipod", {"multimedia-player"}},
    {"com.apple.ipad", {"tablet", "computer-apple-ipad", "pda"}},
    {"com.apple.watch", {"smartwatch", "preferences-system-time"}},
};

}  // namespace

std::vector<std::string> deviceIconNames(std::string_view typeIdentifier)
{
    const std::string closed = std::string(typeIdentifier) + ".";  // so that "com.apple.mac" is one, too
    const auto fits = [&](const Kind& kind) { return closed.starts_with(kind.beginning); };
    const auto found = std::ranges::find_if(kinds, fits);
    return found == std::end(kinds) ? std::vector<std::string>{} : found->names;
}

}  // namespace Platform
