#pragma once

#include <string>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Result.h"

namespace Platform {

// The right to replace a suite's file, among all processes, for a scope.
class DefaultsLock {
public:
    // Waits up to two seconds for another holder.
    static Result<DefaultsLock> take(const std::string& path);

private:
    explicit DefaultsLock(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;  // closing it gives the lock back
};

}  // namespace Platform
