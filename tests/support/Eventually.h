#pragma once

#include "platform/runtime/RunLoop.h"

namespace Tests {

// Runs the thread's loop until the condition holds, for what another process
// or the kernel does in its own time; whether it held before the deadline.
inline bool eventually(const std::function<bool()>& condition,
                       std::chrono::nanoseconds deadline = std::chrono::seconds(10))
{
    Platform::RunLoop& loop = Platform::RunLoop::current();
    const auto holds = [&] {
        if (condition()) return true;
        loop.post([] {});  // so that the loop asks again
        return false;
    };
    return loop.runUntil(holds, deadline);
}

}  // namespace Tests
