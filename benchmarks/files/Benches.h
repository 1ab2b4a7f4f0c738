#pragma once

#include <string>

namespace Bench {

// Each makes its files below the folder, prints its comparison and cleans up.
void compareWalks(const std::string& root);
void compareCatalog(const std::string& root);
void compareMonitors(const std::string& root);
void compareDefaults(const std::string& root);

}  // namespace Bench
