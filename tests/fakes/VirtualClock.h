#pragma once

#include <cmath>
#include <cstdint>

#include "platform/runtime/Clock.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Time that moves only when a test says so. Starts on 2024-01-01 at noon UTC,
// 1,000 s after the machine's start. Thread: any.
class VirtualClock final : public Platform::Clock {
public:
    double wallSeconds() const override { return wall_; }
    std::chrono::nanoseconds monotonic() const override { return std::chrono::nanoseconds(monotonic_.load()); }

    // Lets time pass on both clocks.
    void advance(double seconds)
    {
        wall_ = wall_ + seconds;
        monotonic_ += std::llround(seconds * 1e9);
    }
    // Sets the system's time, as a user or a time server would; what counts
    // monotonic time notices nothing.
    void setWall(double secondsSince1970) { wall_ = secondsSince1970; }

private:
    std::atomic<double> wall_ = 1704110400;
    std::atomic<std::int64_t> monotonic_ = 1'000'000'000'000;
};

using ReplacedClock = Replaced<Platform::Clock, VirtualClock>;

}  // namespace Tests
