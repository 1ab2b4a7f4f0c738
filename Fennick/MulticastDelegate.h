#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace Fennick {

// Listeners that are called together. None is kept alive: one that is
// destroyed elsewhere drops out by itself. No order is promised.
// Thread: one, in practice the main thread.
template <typename T>
class MulticastDelegate {
public:
    MulticastDelegate() = default;
    MulticastDelegate(const MulticastDelegate&) = delete;
    MulticastDelegate& operator=(const MulticastDelegate&) = delete;

    // A listener that is in already stays there once.
    void add(const std::shared_ptr<T>& delegate)
    {
        const auto members = delegates();
        if (!delegate || std::find(members.begin(), members.end(), delegate) != members.end()) return;
        delegates_.push_back(delegate);
    }

    // By identity.
    void remove(const std::shared_ptr<T>& delegate)
    {
        std::erase_if(delegates_, [&](const std::weak_ptr<T>& member) { return member.lock() == delegate; });
    }

    // Calls the block with each listener. Listeners that the block adds or
    // removes do not change the walk that is under way.
    template <typename Block>
    void invoke(Block&& block)
    {
        const auto members = delegates();
        for (auto member = members.rbegin(); member != members.rend(); ++member) block(**member);
    }

    // The listeners that are alive now.
    std::vector<std::shared_ptr<T>> delegates()
    {
        std::vector<std::shared_ptr<T>> members;
        std::erase_if(delegates_, [&](const std::weak_ptr<T>& member) {
            auto alive = member.lock();
            if (alive) members.push_back(std::move(alive));
            return member.expired();
        });
        return members;
    }

private:
    std::vector<std::weak_ptr<T>> delegates_;
};

}  // namespace Fennick
