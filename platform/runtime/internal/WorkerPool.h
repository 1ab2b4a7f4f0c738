#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace Platform {

// The process's background threads. A thread is started when a job finds none
// idle, up to a bound, and ends after some seconds without a job. Thread: any.
class WorkerPool {
public:
    static WorkerPool& shared();

    // Jobs start in the order of posting. An exception that leaves one is logged.
    void post(std::function<void()> job);

private:
    void startWorker();
    void work();

    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::function<void()>> jobs_;
    std::size_t idle_ = 0;
    std::size_t threads_ = 0;
};

// Runs the block; what it throws is logged under the subject's name.
void runLogged(const std::function<void()>& block, const char* subject);

}  // namespace Platform
