#include "platform/runtime/Semaphore.h"

namespace Platform {

void Semaphore::sleep()
{
    std::unique_lock lock(mutex_);
    woken_.wait(lock, [this] { return wakeUps_ > 0; });
    --wakeUps_;
}

void Semaphore::wakeOne()
{
    // Notified under the lock: the woken thread may end the semaphore as soon as it has the lock.
    std::lock_guard lock(mutex_);
    ++wakeUps_;
    woken_.notify_one();
}

bool Semaphore::waitFor(std::chrono::nanoseconds timeout)
{
    if (count_.fetch_sub(1, std::memory_order_acquire) > 0) return true;
    std::unique_lock lock(mutex_);
    const bool isWoken = woken_.wait_for(lock, timeout, [this] { return wakeUps_ > 0; });
    if (!isWoken && takesBackItsClaim()) return false;
    // A signal counted us among the waiting and is about to say so.
    woken_.wait(lock, [this] { return wakeUps_ > 0; });
    --wakeUps_;
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
