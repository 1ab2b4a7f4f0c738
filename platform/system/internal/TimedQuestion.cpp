#include "platform/system/internal/TimedQuestion.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

namespace Platform {

struct TimedQuestion::Pending {
    std::chrono::steady_clock::time_point deadline;
    std::condition_variable arrived;
    std::optional<int> answer;
};

// The questions that are being asked, by subject; the mutex guards them all.
struct TimedQuestion::Board {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<Pending>> pending;
};

TimedQuestion::Board& TimedQuestion::board()
{
    static Board& all = *new Board;  // never destroyed: a thread that was left behind may outlive main
    return all;
}

void TimedQuestion::ask(const std::string& subject, const std::function<int()>& question, Pending& pending)
{
    const int answer = question();
    std::lock_guard lock(board().mutex);
    pending.answer = answer;
    board().pending.erase(subject);
    pending.arrived.notify_all();
}

TimedQuestion::TimedQuestion(std::chrono::milliseconds time, const std::string& subject,
                             const std::function<int()>& question)
{
    std::lock_guard lock(board().mutex);
    if (const auto known = board().pending.find(subject); known != board().pending.end()) {
        pending_ = known->second;
        return;
    }
    const auto pending = std::make_shared<Pending>();
    pending->deadline = std::chrono::steady_clock::now() + time;
    try {
        std::thread([subject, question, pending] { ask(subject, question, *pending); }).detach();
    } catch (const std::system_error&) {
        return;
    }
    board().pending.emplace(subject, pending);
    pending_ = pending;
}

std::optional<int> TimedQuestion::answer() const
{
    if (!pending_) return std::nullopt;
    std::unique_lock lock(board().mutex);
    pending_->arrived.wait_until(lock, pending_->deadline, [&] { return pending_->answer.has_value(); });
    return pending_->answer;
}

}  // namespace Platform
