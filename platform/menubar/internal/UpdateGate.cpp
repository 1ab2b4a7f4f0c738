#include "platform/menubar/internal/UpdateGate.h"

#include "platform/runtime/Clock.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Timer.h"

namespace Platform {

namespace {

constexpr std::chrono::milliseconds rest(100);

}  // namespace

struct UpdateGate::State {
    std::function<bool()> publish;
    std::chrono::nanoseconds nextAllowed{0};
    std::shared_ptr<Timer> timer;
    bool isScheduled = false;

    static void open(const std::weak_ptr<State>& weak)
    {
        const auto self = weak.lock();
        if (!self) return;
        self->isScheduled = false;
        self->timer = nullptr;
        const auto now = Clock::shared().monotonic();
        if (self->publish()) self->nextAllowed = now + rest;
    }
};

UpdateGate::UpdateGate(std::function<bool()> publish) : state_(std::make_shared<State>())
{
    state_->publish = std::move(publish);
}

UpdateGate::~UpdateGate()
{
    if (state_->timer) state_->timer->invalidate();
}

void UpdateGate::request()
{
    if (std::exchange(state_->isScheduled, true)) return;
    const auto open = [weak = std::weak_ptr(state_)] { State::open(weak); };
    const std::chrono::duration<double> left = state_->nextAllowed - Clock::shared().monotonic();
    if (left.count() <= 0) {
        RunLoop::main().post(open);
        return;
    }
    state_->timer = Timer::create(left.count(), false, open);
    RunLoop::main().add(state_->timer);
}

}  // namespace Platform
