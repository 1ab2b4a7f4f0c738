#include "platform/runtime/Clock.h"

#include <ctime>
#include <memory>

#include "platform/runtime/Date.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

timespec read(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return time;
}

class SystemClock final : public Clock {
public:
    double wallSeconds() const override
    {
        const timespec time = read(CLOCK_REALTIME);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    std::chrono::nanoseconds monotonic() const override
    {
        const timespec time = read(CLOCK_BOOTTIME);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }
};

}  // namespace

Clock& Clock::shared()
{
    return Shared<Clock>::get([] { return std::make_unique<SystemClock>(); });
}

Date Date::now()
{
    return Date(Clock::shared().wallSeconds());
}

}  // namespace Platform
