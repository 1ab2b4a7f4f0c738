#include "platform/session/NotificationCenter.h"

#include <mutex>
#include <utility>

#include "platform/runtime/Shared.h"
#include "platform/session/internal/ObserverTable.h"

namespace Platform {

namespace {

struct SenderFilter {
    bool wantsAnybody;
    std::weak_ptr<const void> sender;

    bool accepts(const Notification& notification) const
    {
        if (wantsAnybody) return true;
        const auto wanted = sender.lock();
        return wanted && wanted == notification.sender;
    }
};

}  // namespace

struct NotificationCenter::State {
    std::mutex mutex;
    ObserverTable<SenderFilter> table;
};

NotificationCenter& NotificationCenter::shared()
{
    return Shared<NotificationCenter>::get([] { return std::make_unique<NotificationCenter>(); });
}

NotificationCenter::NotificationCenter() : state_(std::make_shared<State>()) {}
NotificationCenter::~NotificationCenter() = default;

void NotificationCenter::addObserver(ObserverAction action, const NotificationName& name,
                                     const std::shared_ptr<const void>& sender)
{
    std::lock_guard lock(state_->mutex);
    state_->table.add(name, std::move(action), SenderFilter{sender == nullptr, sender});
}

void NotificationCenter::removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name)
{
    std::lock_guard lock(state_->mutex);
    state_->table.remove(name, observer);
}

void NotificationCenter::post(const NotificationName& name, const std::shared_ptr<const void>& sender)
{
    const auto state = state_;  // an observer may end this centre
    const Notification notification{name, std::nullopt, sender};
    std::unique_lock lock(state->mutex);
    const auto observers = state->table.matching(notification);
    lock.unlock();

    if (state->table.call(observers, notification)) return;
    lock.lock();
    state->table.removeGone(name);
}

}  // namespace Platform
