#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <variant>

#include "platform/network/URLError.h"
#include "platform/network/URLSession.h"

namespace Fennick {

// What an operation gave, or the error that it throws.
template <typename T>
using Outcome = std::variant<T, Platform::URLError>;

template <typename T>
T valueOrThrow(Outcome<T> outcome)
{
    if (auto* error = std::get_if<Platform::URLError>(&outcome)) throw std::move(*error);
    return std::get<T>(std::move(outcome));
}

// An operation that has not begun: get() does it on the calling thread and
// waits; co_await starts it and resumes the coroutine on the session's queue.
// Both throw URLError. Only one of them, once. When the coroutine is destroyed
// while it waits, the operation is cancelled and nothing is resumed.
template <typename T>
class [[nodiscard]] Pending {
public:
    using Callback = std::function<void(Outcome<T>)>;
    struct Ways {
        std::function<Outcome<T>()> plainly;
        std::function<std::shared_ptr<Platform::URLSessionTask>(Callback)> withCallback;
    };

    explicit Pending(Ways ways) : ways_(std::move(ways)) {}
    Pending(Pending&&) noexcept = default;
    Pending& operator=(Pending&&) = delete;
    ~Pending()
    {
        if (waiting_ && waiting_->takeCoroutine() && task_) task_->cancel();
    }

    T get() { return valueOrThrow<T>(ways_.plainly()); }

    bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> coroutine)
    {
        // The answer may come, and this object go, before the start returns.
        auto waiting = std::make_shared<Waiting>();
        waiting->coroutine = coroutine;
        waiting_ = waiting;
        std::unique_lock starting(waiting->startMutex);
        auto task = ways_.withCallback([waiting](Outcome<T> outcome) { waiting->resume(std::move(outcome)); });
        task_ = std::move(task);
    }
    T await_resume() { return valueOrThrow<T>(*std::move(waiting_->outcome)); }

private:
    struct Waiting {
        void resume(Outcome<T> result)
        {
            {
                std::lock_guard started(startMutex);
            }
            outcome = std::move(result);
            if (const auto continued = takeCoroutine()) continued.resume();
        }

        // Whoever takes it first, the answer or the end of the wait, has it alone.
        std::coroutine_handle<> takeCoroutine()
        {
            std::lock_guard lock(mutex);
            return std::exchange(coroutine, nullptr);
        }

        std::mutex startMutex;  // held while the operation is being started
        std::mutex mutex;
        std::coroutine_handle<> coroutine;
        std::optional<Outcome<T>> outcome;
    };

    Ways ways_;
    std::shared_ptr<Waiting> waiting_;
    std::shared_ptr<Platform::URLSessionTask> task_;
};

}  // namespace Fennick
