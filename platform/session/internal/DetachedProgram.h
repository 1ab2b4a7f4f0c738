#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

#include "platform/runtime/Result.h"

namespace Platform {

struct DetachedProgram {
    std::string executable;
    std::vector<std::string> arguments;
};

// Starts a program that outlives this one and is not its child: a session of
// its own, the root as its folder, no inherited descriptors or signal settings,
// no input, output to the journal or nowhere. Returns once it executes, or
// after 5 s if the file system keeps that waiting. The new process, or the
// reason why it does not execute.
Result<pid_t> startDetached(const DetachedProgram& program);

}  // namespace Platform
