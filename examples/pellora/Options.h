#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "examples/pellora/AutoStart.h"

namespace Pellora {

// What the command line asks for.
struct Options {
    std::optional<Starter> starter;                                      // else the right one for this system
    std::string_view autoStartCommand;                                   // "on", "off", "status", or another word
    std::optional<std::size_t> tableRefreshes;                           // 0 for no end
    std::string_view picture;                                            // a file to draw the item into
    std::vector<std::pair<std::string_view, std::string_view>> changes;  // settings by name, and their texts
    bool savesSettings = false;
    bool wantsHelp = false;
};

extern const char* const usage;

// Absent when the words are not understood; texts of settings are read later.
// The texts stay those of the arguments.
std::optional<Options> optionsFrom(const std::vector<std::string_view>& arguments);

}  // namespace Pellora
