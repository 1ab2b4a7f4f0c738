#include <cstdio>
#include <string_view>
#include <vector>

#include "examples/pellora/AutoStart.h"
#include "examples/pellora/MainAppDelegate.h"
#include "examples/pellora/Monitor.h"
#include "examples/pellora/Options.h"
#include "examples/pellora/Settings.h"
#include "examples/pellora/providers/AllProviders.h"
#include "examples/pellora/table/TableDelegate.h"
#include "platform/runtime/Application.h"

namespace {

std::shared_ptr<Platform::ApplicationDelegate> delegateFor(const Pellora::Options& options)
{
    if (!options.tableRefreshes) {
        return std::make_shared<Pellora::MainAppDelegate>(Pellora::autoStartController(options.starter));
    }
    auto monitor = std::make_unique<Pellora::Monitor>(options.interval.value_or(Pellora::defaultInterval),
                                                      Pellora::machineProviders("/"));
    return std::make_shared<Pellora::TableDelegate>(std::move(monitor), *options.tableRefreshes);
}

}  // namespace

int main(int argc, char** argv)
{
    const auto options = Pellora::optionsFrom({argv + 1, argv + argc});
    if (!options || options->wantsHelp) {
        std::fputs(Pellora::usage, options ? stdout : stderr);
        return options ? 0 : 2;
    }
    if (!options->autoStartCommand.empty()) {
        const auto controller = Pellora::autoStartController(options->starter);
        return Pellora::runAutoStartCommand(*controller, options->autoStartCommand) ? 0 : 1;
    }
    return Platform::applicationMain(argc, argv, [&] { return delegateFor(*options); });
}
