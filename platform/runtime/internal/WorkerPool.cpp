#include "platform/runtime/internal/WorkerPool.h"

#include <chrono>
#include <csignal>
#include <exception>
#include <string>
#include <system_error>
#include <thread>

#include "platform/runtime/Log.h"

namespace Platform {

namespace {

// Blocks may wait for each other, so there are far more threads than cores.
constexpr std::size_t mostThreads = 64;
constexpr auto idleLifetime = std::chrono::seconds(5);

// Signals belong to the threads that ask for them.
class SignalsBlocked {
public:
    SignalsBlocked()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &previous_);
    }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

private:
    sigset_t previous_;
};

}  // namespace

void runLogged(const std::function<void()>& block, const char* subject)
{
    try {
        block();
    } catch (const std::exception& error) {
        log(std::string("A block of ") + subject + " threw: " + error.what());
    } catch (...) {
        log(std::string("A block of ") + subject + " threw");
    }
}

WorkerPool& WorkerPool::shared()
{
    static WorkerPool& pool = *new WorkerPool;  // never destroyed: its threads may outlive main
    return pool;
}

void WorkerPool::post(std::function<void()> job)
{
    std::unique_lock lock(mutex_);
    jobs_.push_back(std::move(job));
    if (jobs_.size() > idle_ && threads_ < mostThreads) return startWorker();
    lock.unlock();
    posted_.notify_one();
}

void WorkerPool::startWorker()
{
    const SignalsBlocked signals;
    try {
        std::thread([this] { work(); }).detach();
        ++threads_;
    } catch (const std::system_error& error) {
        log(std::string("Could not start a worker thread: ") + error.what());
    }
}

void WorkerPool::work()
{
    std::unique_lock lock(mutex_);
    while (true) {
        ++idle_;
        const bool hasJob = posted_.wait_for(lock, idleLifetime, [this] { return !jobs_.empty(); });
        --idle_;
        if (!hasJob) break;
        std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        runLogged(job, "a background queue");
        job = nullptr;
        lock.lock();
    }
    --threads_;
}

}  // namespace Platform
