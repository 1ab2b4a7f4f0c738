#pragma once

#include <QSocketNotifier>

#include "platform/runtime/RunLoop.h"

namespace Platform {

// Runs a run loop inside the toolkit's: its descriptor hangs in the toolkit's
// waiting, so that its timers, posts and descriptors go on while windows are
// up, modal ones too. Thread: main.
class QtRunLoopHost final : public RunLoopHost {
public:
    explicit QtRunLoopHost(RunLoop& loop);
    ~QtRunLoopHost() override;

    void runUntil(RunLoop& loop, const std::function<bool()>& isDone,
                  std::optional<std::chrono::nanoseconds> timeout) override;
    void wake() override;

private:
    QSocketNotifier notifier_;
};

}  // namespace Platform
