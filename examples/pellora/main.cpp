#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "examples/pellora/AutoStart.h"
#include "examples/pellora/MainAppDelegate.h"
#include "examples/pellora/Options.h"
#include "examples/pellora/PictureDelegate.h"
#include "examples/pellora/Settings.h"
#include "examples/pellora/table/TableDelegate.h"
#include "platform/runtime/Application.h"

namespace {

using namespace Pellora;

int fail(std::string_view what)
{
    std::fprintf(stderr, "%.*s\n%s", static_cast<int>(what.size()), what.data(), usage);
    return 2;
}

// The name of the first setting that was given a text of no use; empty when all are well.
std::string_view apply(const Options& options, Settings& settings)
{
    for (const auto& [name, text] : options.changes) {
        if (!change(settings, name, text)) return name;
    }
    return {};
}

int save(const Settings& settings)
{
    saveSettings(settings, *keptSettings());
    for (const auto& line : textsOf(settings)) std::puts(line.c_str());
    return 0;
}

int switchAutoStart(const Options& options)
{
    const auto controller = autoStartController(options.starter.value_or(starterOfThisSystem()));
    return runAutoStartCommand(*controller, options.autoStartCommand) ? 0 : 1;
}

std::shared_ptr<Platform::ApplicationDelegate> delegateFor(const Options& options, const Settings& settings)
{
    if (options.tableRefreshes) return std::make_shared<TableDelegate>(settings, *options.tableRefreshes);
    auto autoStart = autoStartController(options.starter.value_or(starterOfThisSystem()));
    if (!options.picture.empty()) {
        return std::make_shared<PictureDelegate>(std::move(autoStart), settings, std::string(options.picture));
    }
    return std::make_shared<MainAppDelegate>(std::move(autoStart), [&options] {
        Settings present = loadSettings(*keptSettings());
        apply(options, present);  // its texts were of use before
        return present;
    });
}

}  // namespace

int main(int argc, char** argv)
{
    const auto options = optionsFrom({argv + 1, argv + argc});
    if (!options) return fail("Pellora does not understand these words");
    if (options->wantsHelp) {
        std::fputs(usage, stdout);
        return 0;
    }
    Settings settings = loadSettings(*keptSettings());
    if (const auto wrong = apply(*options, settings); !wrong.empty()) {
        return fail("--" + std::string(wrong) + ": no use of this text");
    }
    if (options->savesSettings) return save(settings);
    if (!options->autoStartCommand.empty()) return switchAutoStart(*options);
    return Platform::applicationMain(argc, argv, [&] { return delegateFor(*options, settings); });
}
