#pragma once

#include <string>

namespace Lorrel {

// Has the desktop open the address; one that is no URL opens nothing. Thread: main.
void openSettingsUrl(const std::string& address);

}  // namespace Lorrel
