#include "platform/runtime/internal/TimerQueue.h"

namespace Platform {

namespace {

// The next point of the timer's grid after `now`.
TimePoint nextOnGrid(TimePoint due, std::chrono::nanoseconds interval, TimePoint now)
{
    const auto missed = (now - due) / interval;
    return due + (missed + 1) * interval;
}

}  // namespace

void TimerQueue::insert(const std::shared_ptr<Timer>& timer, TimePoint due)
{
    if (place(timer, due)) changed_();
}

// False for a timer that has been invalidated meanwhile.
bool TimerQueue::place(const std::shared_ptr<Timer>& timer, TimePoint due)
{
    std::lock_guard timerLock(timer->state_->mutex);
    if (!timer->state_->isValid) return false;
    std::lock_guard lock(mutex_);
    timer->state_->queue = weak_from_this();
    timer->state_->due = due;
    timer->state_->arrival = arrivals_;
    timers_.emplace(Key{due, arrivals_++}, timer);
    return true;
}

void TimerQueue::erase(Timer& timer)
{
    std::shared_ptr<Timer> released;
    std::lock_guard timerLock(timer.state_->mutex);
    std::lock_guard lock(mutex_);
    const auto found = timers_.find(Key{timer.state_->due, timer.state_->arrival});
    if (found == timers_.end() || found->second.get() != &timer) return;
    timer.state_->queue.reset();
    released = std::move(found->second);
    timers_.erase(found);
}

void TimerQueue::close()
{
    std::map<Key, std::shared_ptr<Timer>> released;
    std::lock_guard lock(mutex_);
    released.swap(timers_);
}

std::optional<TimePoint> TimerQueue::nextDue() const
{
    std::lock_guard lock(mutex_);
    if (timers_.empty()) return std::nullopt;
    return timers_.begin()->first.first;
}

std::shared_ptr<Timer> TimerQueue::takeDue(TimePoint now)
{
    std::lock_guard lock(mutex_);
    if (timers_.empty() || timers_.begin()->first.first > now) return nullptr;
    auto timer = std::move(timers_.begin()->second);
    timers_.erase(timers_.begin());
    return timer;
}

bool TimerQueue::fireOne(TimePoint now)
{
    const auto timer = takeDue(now);
    if (!timer) return false;
    Timer::State& state = *timer->state_;
    std::shared_ptr<std::function<void()>> action;
    std::optional<TimePoint> next;
    {
        std::lock_guard lock(state.mutex);
        action = state.action;
        if (state.repeats) {
            next = nextOnGrid(state.due, state.interval, now);
        } else {
            state.isValid = false;
            state.action = nullptr;
        }
    }
    // Back on the loop before the call, so that the action finds its timer in order.
    if (next) place(timer, *next);
    if (action && *action) (*action)();
    return true;
}

}  // namespace Platform
