#pragma once

#include <string>
#include <string_view>

namespace Tests {

// Writes the application bundle PATH: an information dictionary and, where its
// text is given, the script that the dictionary names as executable; its path.
std::string writeScriptApplication(const std::string& path, std::string_view identifier, std::string_view program = {});

}  // namespace Tests
