#pragma once

#include <string>
#include <string_view>

namespace Lorrel {

// ASCII letters made small.
std::string lowerCased(std::string_view text);
// Every occurrence replaced.
std::string replaced(std::string_view text, std::string_view part, std::string_view by);

}  // namespace Lorrel
