#pragma once

#include <functional>
#include <utility>

namespace Platform {

// Keeps something switched on (an observer, a watch, a key grab) and switches
// it off exactly once, when cancelled or destroyed.
// Thread: the one that created it.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> undo) : undo_(std::move(undo)) {}
    Subscription(Subscription&& other) noexcept : undo_(std::exchange(other.undo_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept;
    ~Subscription() { cancel(); }

    // Safe to call twice, and from inside the callback that it ends.
    void cancel();
    bool isActive() const { return undo_ != nullptr; }

private:
    std::function<void()> undo_;
};

}  // namespace Platform
