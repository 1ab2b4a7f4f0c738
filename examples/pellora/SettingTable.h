#pragma once

#include <span>
#include <string>
#include <string_view>

#include "examples/pellora/Settings.h"

namespace Pellora {

// One setting: its name on the command line, its key in the user defaults, and
// how it is read and written as a text.
struct Setting {
    std::string_view name;
    std::string_view key;
    bool (*take)(std::string_view text, Settings& settings);
    std::string (*write)(const Settings& settings);
};

std::span<const Setting> allSettings();

}  // namespace Pellora
