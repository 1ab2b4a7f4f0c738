#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace Platform {

// Asks a question that may hang in a driver, on a thread of its own, and waits
// for the answer for at most the time; absent after it. A call that hangs
// cannot be interrupted, only left behind: until it ends, its subject is not
// asked again and is absent at once. The question must not throw. Thread: any.
std::optional<int> askWithin(std::chrono::milliseconds time, const std::string& subject,
                             const std::function<int()>& question);

}  // namespace Platform
