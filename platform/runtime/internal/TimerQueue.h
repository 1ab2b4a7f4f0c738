#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/runtime/Timer.h"

namespace Platform {

using TimePoint = std::chrono::nanoseconds;  // of Clock::shared()'s monotonic time

// The timers of one loop, by due time and, among equals, by order of arrival.
// Thread: any; actions run outside the lock, on the thread that asks for them.
class TimerQueue : public std::enable_shared_from_this<TimerQueue> {
public:
    // `changed` is called, without the lock, when the earliest due time may have moved.
    explicit TimerQueue(std::function<void()> changed) : changed_(std::move(changed)) {}

    void insert(const std::shared_ptr<Timer>& timer, TimePoint due);
    void erase(Timer& timer);
    // Forgets every timer; the loop is going away.
    void close();

    std::optional<TimePoint> nextDue() const;
    // Runs the action of the earliest timer that is due. False when none is. The
    // caller asks for the next due time by itself before it sleeps.
    bool fireOne(TimePoint now);

private:
    using Key = std::pair<TimePoint, unsigned long>;

    bool place(const std::shared_ptr<Timer>& timer, TimePoint due);
    std::shared_ptr<Timer> takeDue(TimePoint now);

    mutable std::mutex mutex_;
    std::map<Key, std::shared_ptr<Timer>> timers_;
    unsigned long arrivals_ = 0;
    std::function<void()> changed_;
};

// What a timer keeps; `mutex` guards all of it. Lock order: a timer's, then its queue's.
struct Timer::State {
    std::mutex mutex;
    std::chrono::nanoseconds interval{};
    bool repeats = false;
    bool isValid = true;
    std::shared_ptr<std::function<void()>> action;
    std::weak_ptr<TimerQueue> queue;
    TimePoint due{};
    unsigned long arrival = 0;
};

}  // namespace Platform
