#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/network/internal/Transfer.h"

namespace Platform {

// The one thread of the process that moves the transfers with completions.
// At most `mostActive` move at a time; the others wait in order, and their
// time starts when they do. It sleeps while there is nothing to move and
// lives as long as the process. Thread: any.
class NetworkThread {
public:
    using Completion = std::function<void(FetchOutcome)>;

    static constexpr std::size_t mostActive = 256;

    // What was submitted, to be named when it is cancelled.
    struct Ticket {
        std::unique_ptr<Transfer> transfer;
        Completion completion;  // called on this thread; hands on at once
        EasyHandle easy;
        bool isCancelled = false;  // under the thread's lock
    };

    static NetworkThread& shared();

    std::shared_ptr<Ticket> submit(std::unique_ptr<Transfer> transfer, Completion completion);
    // Its completion comes with the error "cancelled", unless it has ended.
    void cancel(const std::shared_ptr<Ticket>& ticket);

private:
    NetworkThread();

    void run();
    void waitForWork();
    // Lets them join those that wait; gives who has been cancelled since.
    std::vector<std::shared_ptr<Ticket>> takeSubmitted();
    void drop(const std::vector<std::shared_ptr<Ticket>>& cancelled);
    void admit();
    void takeFinished();
    void expire();
    int millisecondsToDeadline() const;
    void end(std::list<std::shared_ptr<Ticket>>::iterator place, FetchOutcome outcome);
    void signal(bool isIdle);
    EasyHandle takeHandle();
    void giveBack(EasyHandle handle);

    std::mutex mutex_;
    std::condition_variable hasWork_;
    std::vector<std::shared_ptr<Ticket>> submitted_;
    bool hasCancelled_ = false;
    bool isIdle_ = false;  // it waits for the condition, not for the network

    // The thread's own.
    MultiHandle multi_;
    std::deque<std::shared_ptr<Ticket>> waiting_;
    std::list<std::shared_ptr<Ticket>> active_;
    std::vector<EasyHandle> idleHandles_;
};

}  // namespace Platform
