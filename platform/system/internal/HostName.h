#pragma once

#include <optional>
#include <string>

namespace Platform {

// The machine's pretty name: of the file that keeps it (machine-info), else of
// the host-name service on the system bus, asked for at most a second.
std::optional<std::string> prettyHostName();

}  // namespace Platform
