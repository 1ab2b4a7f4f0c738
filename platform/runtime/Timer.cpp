#include "platform/runtime/Timer.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "platform/runtime/Clock.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/internal/TimerQueue.h"

namespace Platform {

namespace {

std::chrono::nanoseconds boundedInterval(double seconds)
{
    constexpr double shortest = 1e-4;
    constexpr double longest = 1e9;  // thirty years
    const double bounded = seconds > shortest ? std::min(seconds, longest) : shortest;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(bounded * 1e9));
}

}  // namespace

Timer::Timer(std::unique_ptr<State> state) : state_(std::move(state)) {}

Timer::~Timer() = default;

std::shared_ptr<Timer> Timer::create(double intervalSeconds, bool repeats, std::function<void()> action)
{
    auto state = std::make_unique<State>();
    state->interval = boundedInterval(intervalSeconds);
    state->repeats = repeats;
    state->action = std::make_shared<std::function<void()>>(std::move(action));
    return std::shared_ptr<Timer>(new Timer(std::move(state)));
}

std::shared_ptr<Timer> Timer::scheduled(double intervalSeconds, bool repeats, std::function<void()> action)
{
    auto timer = create(intervalSeconds, repeats, std::move(action));
    RunLoop::current().add(timer);
    return timer;
}

void Timer::invalidate()
{
    std::shared_ptr<std::function<void()>> released;  // destroyed last, outside the lock: it may own the timer's owner
    const auto self = weak_from_this().lock();
    std::shared_ptr<TimerQueue> queue;
    {
        std::lock_guard lock(state_->mutex);
        state_->isValid = false;
        released = std::exchange(state_->action, nullptr);
        queue = state_->queue.lock();
    }
    if (queue) queue->erase(*this);
}

bool Timer::isValid() const
{
    std::lock_guard lock(state_->mutex);
    return state_->isValid;
}

double Timer::interval() const
{
    return std::chrono::duration<double>(state_->interval).count();
}

}  // namespace Platform
