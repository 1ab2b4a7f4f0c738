#include "platform/system/internal/TimedQuestion.h"

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace Platform {

namespace {

using Moment = std::chrono::steady_clock::time_point;

struct Pending {
    explicit Pending(Moment limit) : deadline(limit) {}

    Moment deadline;
    std::condition_variable arrived;
    std::optional<int> answer;
};

// The questions that are being asked, by subject; the mutex guards them all.
struct Questions {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<Pending>> pending;
};

Questions& questions()
{
    static Questions& all = *new Questions;  // never destroyed: a thread that was left behind may outlive main
    return all;
}

void ask(const std::string& subject, const std::function<int()>& question, Pending& pending)
{
    const int answer = question();
    Questions& all = questions();
    std::lock_guard lock(all.mutex);
    pending.answer = answer;
    all.pending.erase(subject);
    pending.arrived.notify_all();
}

}  // namespace

std::optional<int> askWithin(std::chrono::milliseconds time, const std::string& subject,
                             const std::function<int()>& question)
try {
    Questions& all = questions();
    std::unique_lock lock(all.mutex);
    std::shared_ptr<Pending> pending;
    if (const auto known = all.pending.find(subject); known != all.pending.end()) {
        pending = known->second;
    } else {
        pending = std::make_shared<Pending>(std::chrono::steady_clock::now() + time);
        std::thread([subject, question, pending] { ask(subject, question, *pending); }).detach();
        all.pending.emplace(subject, pending);
    }
    pending->arrived.wait_until(lock, pending->deadline, [&] { return pending->answer.has_value(); });
    return pending->answer;
} catch (const std::system_error&) {
    return std::nullopt;  // no thread is to be had
}

}  // namespace Platform
