#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Platform {

// A question that may hang in a driver, asked on a thread of its own. A call
// that hangs cannot be interrupted, only left behind: until it ends, its subject
// is not asked again and is absent at once. Thread: any, one at a time.
class TimedQuestion {
public:
    // Begins to ask. The question must not throw.
    TimedQuestion(std::chrono::milliseconds time, const std::string& subject, const std::function<int()>& question);

    // Waits until the time is over since the subject was first asked; absent after it.
    std::optional<int> answer() const;

private:
    struct Pending;
    struct Board;
    static Board& board();
    static void ask(const std::string& subject, const std::function<int()>& question, Pending& pending);

    std::shared_ptr<Pending> pending_;  // null where no thread is to be had
};

}  // namespace Platform
