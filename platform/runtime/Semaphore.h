#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace Platform {

// A counting semaphore of eight bytes; two atomic steps where nobody has to wait.
// With a count of one it serves as a lock (std::lock_guard takes it). Thread: any.
class Semaphore {
public:
    explicit Semaphore(int count) : count_(count) {}
    Semaphore(const Semaphore&) = delete;
    Semaphore& operator=(const Semaphore&) = delete;

    void wait()
    {
        if (count_.fetch_sub(1, std::memory_order_acquire) <= 0) sleep();
    }
    // False when the time is over first.
    bool waitFor(std::chrono::nanoseconds timeout);
    void signal()
    {
        if (count_.fetch_add(1, std::memory_order_release) < 0) wakeOne();
    }

    void lock() { wait(); }
    void unlock() { signal(); }

private:
    void sleep();
    void wakeOne();
    bool takesWakeUp();
    bool takesBackItsClaim();

    std::atomic<int> count_;                  // below zero: so many wait
    std::atomic<std::uint32_t> wakeUps_ = 0;  // given to those who wait, not yet taken
};

}  // namespace Platform
