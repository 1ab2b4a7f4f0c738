#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/runtime/Result.h"

namespace Platform {

// A program to run to its end.
struct Command {
    std::string executable;              // an absolute path
    std::vector<std::string> arguments;  // without the program's name
    // Variables on top of this process's environment.
    std::vector<std::pair<std::string, std::string>> environment = {};
};

struct CommandOutput {
    std::string output;  // all bytes of its standard output
    int status = 0;      // the exit code, or the signal's number
    bool didExit = false;
};

// Runs a program and waits until its standard output is closed by all who hold
// it and the program itself has ended. Its standard error is discarded. It
// inherits the standard input, but no other descriptor, and no signal settings.
// Fails when it cannot be started. Thread: any.
Result<CommandOutput> runCommand(const Command& command);

}  // namespace Platform
