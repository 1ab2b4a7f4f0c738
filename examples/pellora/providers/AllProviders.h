#pragma once

#include <memory>
#include <string>
#include <vector>

#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// A provider for everything that this machine has, in the order in which the
// readings are shown. `diskFolder` tells which file system is measured.
std::vector<std::shared_ptr<Provider>> machineProviders(const std::string& diskFolder);

}  // namespace Pellora
