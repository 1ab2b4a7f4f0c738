#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "examples/pellora/AutoStart.h"

namespace Pellora {

// What the command line asks for.
struct Options {
    Starter starter = Starter::launcher;
    std::string_view autoStartCommand;          // "on", "off", "status", or another word
    std::optional<std::size_t> tableRefreshes;  // 0 for no end
    std::optional<double> interval;             // seconds
    bool wantsHelp = false;
};

extern const char* const usage;

// Absent when the words are not understood. The texts stay those of the arguments.
std::optional<Options> optionsFrom(const std::vector<std::string_view>& arguments);

}  // namespace Pellora
