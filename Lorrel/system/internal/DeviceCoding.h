#pragma once

#include <string_view>
#include <vector>

#include "Lorrel/system/MacDevice.h"

namespace Lorrel {

// The records of a catalogue file in its order; empty when it is not a JSON array of records.
std::vector<MacDevice> decodeDevices(std::string_view json);

}  // namespace Lorrel
