#pragma once

#include <chrono>

namespace Platform {

// The machine's clocks, replaceable in tests. Thread: any.
class Clock {
public:
    static Clock& shared();
    virtual ~Clock() = default;

    // Seconds since 1970; follows every change of the system's time.
    virtual double wallSeconds() const = 0;

    // Time since an arbitrary start, counted through suspend; never steps back.
    virtual std::chrono::nanoseconds monotonic() const = 0;
};

}  // namespace Platform
