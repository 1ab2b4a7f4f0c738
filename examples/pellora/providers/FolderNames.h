#pragma once

#include <string>
#include <vector>

namespace Pellora {

// The names in a folder, in their order; empty when it cannot be listed.
std::vector<std::string> namesIn(const std::string& folder);

}  // namespace Pellora
