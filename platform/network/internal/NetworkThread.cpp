#include "platform/network/internal/NetworkThread.h"

#include <algorithm>
#include <csignal>
#include <thread>
#include <utility>

namespace Platform {

NetworkThread& NetworkThread::shared()
{
    static NetworkThread& thread = *new NetworkThread;  // runs until the process ends
    return thread;
}

NetworkThread::NetworkThread() : multi_(curl().newMulti())
{
    // The thread takes no signal, SIGPIPE of a lost connection included.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread([this] { run(); }).detach();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

std::shared_ptr<NetworkThread::Ticket> NetworkThread::submit(std::unique_ptr<Transfer> transfer, Completion completion)
{
    auto ticket = std::make_shared<Ticket>();
    ticket->transfer = std::move(transfer);
    ticket->completion = std::move(completion);
    bool isIdle = false;
    {
        std::lock_guard lock(mutex_);
        submitted_.push_back(ticket);
        isIdle = isIdle_;
    }
    signal(isIdle);
    return ticket;
}

void NetworkThread::cancel(const std::shared_ptr<Ticket>& ticket)
{
    bool isIdle = false;
    {
        std::lock_guard lock(mutex_);
        ticket->isCancelled = true;
        hasCancelled_ = true;
        isIdle = isIdle_;
    }
    signal(isIdle);
}

void NetworkThread::signal(bool isIdle)
{
    if (isIdle) {
        hasWork_.notify_one();
    } else {
        curl().wakeUp(multi_.get());
    }
}

void NetworkThread::run()
{
    const Utf8HostNames names;
    for (;;) {
        waitForWork();
        drop(takeSubmitted());
        admit();
        int running = 0;
        curl().perform(multi_.get(), &running);
        takeFinished();
        expire();
        if (!active_.empty()) curl().poll(multi_.get(), nullptr, 0, millisecondsToDeadline(), nullptr);
    }
}

void NetworkThread::waitForWork()
{
    std::unique_lock lock(mutex_);
    if (!active_.empty() || !waiting_.empty()) return;
    isIdle_ = true;
    hasWork_.wait(lock, [&] { return !submitted_.empty(); });
    isIdle_ = false;
}

// Both in one step: a transfer that is submitted and cancelled between two
// steps would be in none of the lists that are searched, and run.
std::vector<std::shared_ptr<NetworkThread::Ticket>> NetworkThread::takeSubmitted()
{
    std::vector<std::shared_ptr<Ticket>> cancelled;
    std::lock_guard lock(mutex_);
    waiting_.insert(waiting_.end(), submitted_.begin(), submitted_.end());
    submitted_.clear();
    if (!std::exchange(hasCancelled_, false)) return cancelled;
    const auto collect = [&](const auto& tickets) {
        std::copy_if(tickets.begin(), tickets.end(), std::back_inserter(cancelled),
                     [](const auto& ticket) { return ticket->isCancelled; });
    };
    collect(waiting_);
    collect(active_);
    return cancelled;
}

void NetworkThread::admit()
{
    while (!waiting_.empty() && active_.size() < mostActive) {
        auto ticket = std::move(waiting_.front());
        waiting_.pop_front();
        ticket->easy = takeHandle();
        ticket->transfer->prepare(ticket->easy.get(), std::chrono::steady_clock::now());
        active_.push_back(ticket);
        if (curl().addToMulti(multi_.get(), ticket->easy.get()) == CURLM_OK) continue;
        end(std::prev(active_.end()), ticket->transfer->failed(URLError::Code::unknown));
    }
}

void NetworkThread::end(std::list<std::shared_ptr<Ticket>>::iterator place, FetchOutcome outcome)
{
    const std::shared_ptr<Ticket> ticket = std::move(*place);
    active_.erase(place);
    curl().removeFromMulti(multi_.get(), ticket->easy.get());
    giveBack(std::move(ticket->easy));
    ticket->transfer.reset();
    std::exchange(ticket->completion, nullptr)(std::move(outcome));
}

EasyHandle NetworkThread::takeHandle()
{
    if (idleHandles_.empty()) return EasyHandle(curl().newEasy());
    EasyHandle handle = std::move(idleHandles_.back());
    idleHandles_.pop_back();
    return handle;
}

// Without anything of the session that it served.
void NetworkThread::giveBack(EasyHandle handle)
{
    constexpr std::size_t mostIdle = 16;
    if (!handle || idleHandles_.size() >= mostIdle) return;
    forgetSession(handle.get());
    idleHandles_.push_back(std::move(handle));
}

void NetworkThread::drop(const std::vector<std::shared_ptr<Ticket>>& cancelled)
{
    for (const auto& ticket : cancelled) {
        auto outcome = ticket->transfer->failed(URLError::Code::cancelled);
        if (const auto place = std::find(active_.begin(), active_.end(), ticket); place != active_.end()) {
            end(place, std::move(outcome));
            continue;
        }
        waiting_.erase(std::find(waiting_.begin(), waiting_.end(), ticket));
        ticket->transfer.reset();
        std::exchange(ticket->completion, nullptr)(std::move(outcome));
    }
}

void NetworkThread::takeFinished()
{
    int left = 0;
    while (const CURLMsg* message = curl().nextMessage(multi_.get(), &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        const CURLcode code = message->data.result;
        const auto place = std::find_if(active_.begin(), active_.end(),
                                        [&](const auto& ticket) { return ticket->easy.get() == message->easy_handle; });
        if (place != active_.end()) end(place, (*place)->transfer->finished(code));
    }
}

void NetworkThread::expire()
{
    const auto now = std::chrono::steady_clock::now();
    for (auto place = active_.begin(); place != active_.end();) {
        const auto next = std::next(place);
        if ((*place)->transfer->deadline() <= now) end(place, (*place)->transfer->failed(URLError::Code::timedOut));
        place = next;
    }
}

int NetworkThread::millisecondsToDeadline() const
{
    constexpr std::chrono::milliseconds longest(60 * 60 * 1000);
    auto next = Transfer::Instant::max();
    for (const auto& ticket : active_) next = std::min(next, ticket->transfer->deadline());
    const auto now = std::chrono::steady_clock::now();
    if (next - now > longest) return static_cast<int>(longest.count());
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - now);
    return static_cast<int>(std::max(left, std::chrono::milliseconds(0)).count());
}

}  // namespace Platform
