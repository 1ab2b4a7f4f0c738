#include "examples/pellora/Options.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "examples/pellora/Settings.h"

namespace Pellora {

namespace {

template <typename T>
bool takeNumber(std::string_view word, std::optional<T>& into)
{
    T number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size()) return false;
    into = number;
    return true;
}

bool takeInterval(std::string_view word, Options& options)
{
    return takeNumber(word, options.interval) && *options.interval >= shortestInterval &&
           *options.interval <= longestInterval;
}

// The options that stand alone, and those followed by a word; false where the word is of no use.
struct Flag {
    std::string_view name;
    void (*take)(Options&);
};
struct Setting {
    std::string_view name;
    bool (*take)(std::string_view word, Options&);
};

constexpr Flag flags[] = {
    {"--directly", [](Options& options) { options.starter = Starter::session; }},
    {"--help", [](Options& options) { options.wantsHelp = true; }},
};
constexpr Setting settings[] = {
    {"--start-at-login",
     [](std::string_view word, Options& options) {
         options.autoStartCommand = word;
         return true;
     }},
    {"--table", [](std::string_view word, Options& options) { return takeNumber(word, options.tableRefreshes); }},
    {"--interval", takeInterval},
};

}  // namespace

const char* const usage =
    "Pellora                                 runs until it is told to quit\n"
    "Pellora --table N                       prints the readings N times (0: without end) and ends\n"
    "Pellora --start-at-login on|off|status  switches starting at login and prints its state\n"
    "Options:\n"
    "  --interval SECONDS  between two readings\n"
    "  --directly          the session starts Pellora itself, without its launcher\n"
    "  --help\n";

std::optional<Options> optionsFrom(const std::vector<std::string_view>& arguments)
{
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view word = arguments[at];
        const auto isNamed = [&](const auto& option) { return option.name == word; };
        if (const auto* flag = std::ranges::find_if(flags, isNamed); flag != std::end(flags)) {
            flag->take(options);
            continue;
        }
        const auto* setting = std::ranges::find_if(settings, isNamed);
        if (setting == std::end(settings) || at + 1 == arguments.size()) return std::nullopt;
        if (!setting->take(arguments[++at], options)) return std::nullopt;
    }
    return options;
}

}  // namespace Pellora
