#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

#include "platform/session/Notification.h"

namespace Platform {

// An observer and the operation of it to call, which takes the notification or
// nothing. The observer is held weakly. A value; any thread.
class ObserverAction {
public:
    template <typename Observer, typename Operation>
    requires std::invocable<Operation, Observer&> || std::invocable<Operation, Observer&, const Notification&>
    ObserverAction(const std::shared_ptr<Observer>& observer, Operation operation)
        : observer_(observer), call_([observer = std::weak_ptr(observer), operation](const Notification& notification) {
              const auto alive = observer.lock();
              if (!alive) return false;
              if constexpr (std::invocable<Operation, Observer&, const Notification&>) {
                  std::invoke(operation, *alive, notification);
              } else {
                  std::invoke(operation, *alive);
              }
              return true;
          })
    {
    }

    // False when the observer is gone.
    bool call(const Notification& notification) const { return call_(notification); }
    bool isGone() const { return observer_.expired(); }

    // Observers are told apart by who owns them, so a pointer to a base class is the same observer.
    bool isOf(const std::shared_ptr<const void>& observer) const
    {
        return !observer_.owner_before(observer) && !observer.owner_before(observer_);
    }

private:
    std::weak_ptr<const void> observer_;
    std::function<bool(const Notification&)> call_;
};

}  // namespace Platform
