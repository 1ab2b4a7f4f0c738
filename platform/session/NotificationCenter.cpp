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

// Declared before the lock, so that they are destroyed after it has ended.
using Registrations = ObserverTable<SenderFilter>::Snapshot;

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
    const auto state = state_;  // what a gone observer held may end this centre
    Registrations gone;
    std::lock_guard lock(state->mutex);
    gone = state->table.add(name, std::move(action), SenderFilter{sender == nullptr, sender});
}

void NotificationCenter::removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name)
{
    const auto state = state_;  // what the observer held may end this centre
    Registrations removed;
    std::lock_guard lock(state->mutex);
    removed = state->table.remove(name, observer);
}

void NotificationCenter::post(const NotificationName& name, const std::shared_ptr<const void>& sender)
{
    const auto state = state_;  // an observer may end this centre
    const Notification notification{name, std::nullopt, sender};
    Registrations observers;
    Registrations gone;
    std::unique_lock lock(state->mutex);
    observers = state->table.matching(notification);
    lock.unlock();

    if (state->table.call(observers, notification)) return;
    lock.lock();
    gone = state->table.removeGone(name);
}

}  // namespace Platform
