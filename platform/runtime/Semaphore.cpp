#include "platform/runtime/Semaphore.h"

#include <algorithm>
#include <ctime>

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Platform {

namespace {

using Clock = std::chrono::steady_clock;

// Sleeps while the word is zero; a signal or an interruption may end it early.
void sleepWhileZero(std::atomic<std::uint32_t>& word, const timespec* timeout)
{
    syscall(SYS_futex, &word, FUTEX_WAIT_PRIVATE, 0, timeout, nullptr, 0);
}

timespec timespecOf(std::chrono::nanoseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {seconds.count(), (time - seconds).count()};
}

}  // namespace

void Semaphore::sleep()
{
    while (!takesWakeUp()) sleepWhileZero(wakeUps_, nullptr);
}

void Semaphore::wakeOne()
{
    // The woken thread may end the semaphore as soon as it has its wake-up: from then on only the address is used.
    auto* const word = &wakeUps_;
    word->fetch_add(1, std::memory_order_release);
    syscall(SYS_futex, word, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

bool Semaphore::takesWakeUp()
{
    std::uint32_t given = wakeUps_.load(std::memory_order_relaxed);
    while (given > 0) {
        if (wakeUps_.compare_exchange_weak(given, given - 1, std::memory_order_acquire)) return true;
    }
    return false;
}

bool Semaphore::waitFor(std::chrono::nanoseconds timeout)
{
    if (count_.fetch_sub(1, std::memory_order_acquire) > 0) return true;
    constexpr std::chrono::nanoseconds longest = std::chrono::hours(24 * 365);
    const auto deadline = Clock::now() + std::min(timeout, longest);
    while (!takesWakeUp()) {
        const std::chrono::nanoseconds left = deadline - Clock::now();
        if (left.count() > 0) {
            const timespec time = timespecOf(left);
            sleepWhileZero(wakeUps_, &time);
        } else if (takesBackItsClaim()) {
            return false;
        } else {
            sleepWhileZero(wakeUps_, nullptr);  // a signal counted us among the waiting and is about to say so
        }
    }
    return true;
}

bool Semaphore::takesBackItsClaim()
{
    int count = count_.load();
    while (count < 0) {
        if (count_.compare_exchange_weak(count, count + 1)) return true;
    }
    return false;
}

}  // namespace Platform
