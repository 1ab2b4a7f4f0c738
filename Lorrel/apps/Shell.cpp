#include "Lorrel/apps/Shell.h"

#include <utility>

#include "platform/runtime/Command.h"
#include "platform/runtime/Utf8.h"

namespace Lorrel {

ShellOutput Shell::run(const std::vector<std::string>& arguments)
{
    Platform::Command command{"/bin/bash", {"-c"}, {{"LC_ALL", "en_US.UTF-8"}}};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    ShellOutput result;
    auto ended = Platform::runCommand(command);
    if (!ended) return result;
    if (Platform::isUtf8(ended->output)) result.setOutput(std::move(ended->output));
    result.setExitCode(ended->status);
    result.setDidExit(ended->didExit);
    return result;
}

}  // namespace Lorrel
