#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace Platform {

class RunLoop;

// A timer on a run loop. A repeating one keeps its phase: when it fires late
// (the loop was busy, the machine slept) it fires once, and the next fire
// stays on the original grid. Each tick follows Clock::shared()'s monotonic
// time, so a change of the system's time disturbs nothing.
// Thread: fires on the thread of its loop; invalidate() any thread.
class Timer : public std::enable_shared_from_this<Timer> {
public:
    // Schedules a new timer on the current thread's loop. The loop holds the
    // timer, and the timer its action, until it is invalidated or, when it does
    // not repeat, has fired. An interval below 0.1 ms, or not a number, counts as 0.1 ms.
    static std::shared_ptr<Timer> scheduled(double intervalSeconds, bool repeats, std::function<void()> action);
    // A timer on no loop yet; RunLoop::add puts it on one.
    static std::shared_ptr<Timer> create(double intervalSeconds, bool repeats, std::function<void()> action);

    // Ends the timer and lets go of its action. Safe twice, and from inside the action.
    void invalidate();
    bool isValid() const;
    double interval() const;

    ~Timer();

private:
    friend class RunLoop;
    friend class TimerQueue;
    struct State;
    explicit Timer(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace Platform
