#pragma once

#include <string>
#include <vector>

#include "Lorrel/apps/ShellOutput.h"

namespace Lorrel {

// Commands of the system's shell, run to their end. Thread: any; the calling
// thread waits, so keep it off the main thread where that must not stand still.
class Shell {
public:
    Shell() = delete;

    // Runs /bin/bash with "-c" and the arguments: the first is the command, the
    // others its positional parameters from $0 on. It ends when all who hold
    // the command's standard output have closed it, background jobs included.
    // LC_ALL is "en_US.UTF-8"; standard error is discarded. Where the shell
    // cannot be started the answer is an untouched ShellOutput.
    static ShellOutput run(const std::vector<std::string>& arguments);
};

}  // namespace Lorrel
