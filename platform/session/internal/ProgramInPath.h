#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

// The first executable file of that name in the absolute folders of PATH.
std::optional<std::string> programInPath(std::string_view name);

}  // namespace Platform
