#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "Lorrel/system/MacDevice.h"
#include "platform/runtime/Image.h"

namespace Lorrel {

// The catalogue of computers: the resource "mac-devices.json" of the library's
// bundle, and the system's own pictures of them. docs/devices.md says where the
// catalogue's facts come from. Thread: one at a time (main).
class MacDevices {
public:
    MacDevices() = delete;

    // The whole catalogue in file order, read anew on every call; empty when it
    // is missing or damaged.
    static std::vector<MacDevice> allDevices();
    // The first entry of exactly this model. What was found is kept for the
    // life of the process; what was not is sought again by the next call.
    static std::optional<MacDevice> device(std::string_view model);
    // The system's picture of the model: of its own code, else of the code
    // before the comma, else of that without digits, as the property lists
    // below /System/Library/CoreServices/CoreTypes.bundle/Contents declare
    // them. Null when none declares it. Parses those files on every call.
    static Platform::ImageRef icon(std::string_view model);
};

}  // namespace Lorrel
