#include <cstdio>
#include <string_view>
#include <vector>

#include "examples/pellora/AutoStart.h"
#include "examples/pellora/MainAppDelegate.h"
#include "platform/runtime/Application.h"

namespace {

constexpr const char* usage =
    "Pellora                                 runs until it is told to quit\n"
    "Pellora --start-at-login on|off|status  switches starting at login and prints its state\n"
    "Options:\n"
    "  --directly   the session starts Pellora itself, without its launcher\n"
    "  --help\n";

struct Options {
    Pellora::Starter starter = Pellora::Starter::launcher;
    std::string_view autoStartCommand;
    bool isUnderstood = true;
    bool wantsHelp = false;
};

Options optionsFrom(const std::vector<std::string_view>& arguments)
{
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        if (arguments[at] == "--directly") {
            options.starter = Pellora::Starter::session;
        } else if (arguments[at] == "--start-at-login" && at + 1 < arguments.size()) {
            options.autoStartCommand = arguments[++at];
        } else if (arguments[at] == "--help") {
            options.wantsHelp = true;
        } else {
            options.isUnderstood = false;
        }
    }
    return options;
}

}  // namespace

int main(int argc, char** argv)
{
    const Options options = optionsFrom({argv + 1, argv + argc});
    if (!options.isUnderstood || options.wantsHelp) {
        std::fputs(usage, options.wantsHelp ? stdout : stderr);
        return options.wantsHelp ? 0 : 2;
    }
    if (!options.autoStartCommand.empty()) {
        const auto controller = Pellora::autoStartController(options.starter);
        return Pellora::runAutoStartCommand(*controller, options.autoStartCommand) ? 0 : 1;
    }
    return Platform::applicationMain(argc, argv, [&] {
        return std::make_shared<Pellora::MainAppDelegate>(Pellora::autoStartController(options.starter));
    });
}
