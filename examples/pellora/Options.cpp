#include "examples/pellora/Options.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "examples/pellora/SettingTable.h"

namespace Pellora {

namespace {

// The options that stand alone, and those followed by a word; false where the
// word is of no use. Every other one is named as the setting that it changes.
struct Flag {
    std::string_view name;
    void (*take)(Options&);
};
struct Wish {
    std::string_view name;
    bool (*take)(std::string_view word, Options&);
};

bool takeStartAtLogin(std::string_view word, Options& options)
{
    options.autoStartCommand = word;
    return true;
}

bool takeTable(std::string_view word, Options& options)
{
    std::size_t refreshes = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), refreshes);
    options.tableRefreshes = refreshes;
    return error == std::errc() && end == word.data() + word.size();
}

bool takePicture(std::string_view word, Options& options)
{
    options.picture = word;
    return !word.empty();
}

constexpr Flag flags[] = {
    {"--directly", [](Options& options) { options.starter = Starter::session; }},
    {"--through-launcher", [](Options& options) { options.starter = Starter::launcher; }},
    {"--save", [](Options& options) { options.savesSettings = true; }},
    {"--help", [](Options& options) { options.wantsHelp = true; }},
};
constexpr Wish wishes[] = {
    {"--start-at-login", takeStartAtLogin},
    {"--table", takeTable},
    {"--picture", takePicture},
};

bool takeChange(std::string_view option, std::string_view word, Options& options)
{
    if (!option.starts_with("--")) return false;
    const std::string_view name = option.substr(2);
    if (std::ranges::find(allSettings(), name, &Setting::name) == allSettings().end()) return false;
    options.changes.emplace_back(name, word);
    return true;
}

bool takeWithWord(std::string_view option, std::string_view word, Options& options)
{
    const auto* wish = std::ranges::find(wishes, option, &Wish::name);
    return wish != std::end(wishes) ? wish->take(word, options) : takeChange(option, word, options);
}

}  // namespace

const char* const usage =
    "Pellora                                 runs until it is told to quit\n"
    "Pellora --table N                       prints the readings N times (0: without end) and ends\n"
    "Pellora --picture FILE                  draws its status item and menu, light and dark, as PNG and ends\n"
    "Pellora --start-at-login on|off|status  switches starting at login and prints its state\n"
    "Pellora --save SETTINGS                 keeps the settings, also for one that runs, and prints all\n"
    "Settings, for this run unless they are saved:\n"
    "  --interval SECONDS    between two readings\n"
    "  --disk FOLDER         whose file system is measured\n"
    "  --limits LIST         warn of these readings: 'cpu.total>90,disk.free<10G'\n"
    "  --watch LIST          applications to watch, by bundle identifier\n"
    "  --log FILE            to follow\n"
    "  --ping ADDRESS        of a web server\n"
    "  --hotkey KEYS         opens the menu: 'control+option+p'\n"
    "Options:\n"
    "  --directly            the session starts Pellora itself\n"
    "  --through-launcher    its launcher starts it\n"
    "  --help\n";

std::optional<Options> optionsFrom(const std::vector<std::string_view>& arguments)
{
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view word = arguments[at];
        if (const auto* flag = std::ranges::find(flags, word, &Flag::name); flag != std::end(flags)) {
            flag->take(options);
            continue;
        }
        if (at + 1 == arguments.size() || !takeWithWord(word, arguments[++at], options)) return std::nullopt;
    }
    return options;
}

}  // namespace Pellora
