#pragma once

#include <string>

namespace Fennick {

// A fresh random UUID (RFC 4122, version 4) in capitals:
// "F47AC10B-58CC-4372-A567-0E02B2C3D479".
std::string randomUuidText();

}  // namespace Fennick
