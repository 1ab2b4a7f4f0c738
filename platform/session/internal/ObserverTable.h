#pragma once

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/session/ObserverAction.h"

namespace Platform {

// The registrations of a notification centre, by name and in their order. A
// filter says which notifications of the name a registration wants:
// `bool accepts(const Notification&) const`.
// What takes registrations out gives them back, to be destroyed where what
// their operations hold may use the table again as it goes.
// Thread: one at a time, but for Registration::isActive.
template <typename Filter>
class ObserverTable {
public:
    struct Registration {
        ObserverAction action;
        Filter filter;
        std::atomic<bool> isActive{true};
    };
    using Snapshot = std::vector<std::shared_ptr<Registration>>;

    Snapshot add(const NotificationName& name, ObserverAction action, Filter filter)
    {
        Snapshot gone = removeGone(name);
        // Older clangs make no aggregate from arguments in parentheses, as make_shared would.
        byName_[name.text()].push_back(
            std::shared_ptr<Registration>(new Registration{std::move(action), std::move(filter)}));
        return gone;
    }

    Snapshot remove(const NotificationName& name, const std::shared_ptr<const void>& observer)
    {
        return removeIf(name, [&](const Registration& registration) { return registration.action.isOf(observer); });
    }

    Snapshot removeGone(const NotificationName& name)
    {
        return removeIf(name, [](const Registration& registration) { return registration.action.isGone(); });
    }

    // Who is to be called for a notification that comes now.
    Snapshot matching(const Notification& notification) const
    {
        Snapshot found;
        const auto named = byName_.find(notification.name.text());
        if (named == byName_.end()) return found;
        std::ranges::copy_if(named->second, std::back_inserter(found),
                             [&](const auto& registration) { return registration->filter.accepts(notification); });
        return found;
    }

    // Calls them in order, except who was removed meanwhile. False when one of the observers is gone.
    static bool call(const Snapshot& snapshot, const Notification& notification)
    {
        bool allThere = true;
        for (const auto& registration : snapshot) {
            if (registration->isActive) allThere &= registration->action.call(notification);
        }
        return allThere;
    }

private:
    template <typename Predicate>
    Snapshot removeIf(const NotificationName& name, Predicate isOut)
    {
        Snapshot out;
        const auto named = byName_.find(name.text());
        if (named == byName_.end()) return out;
        std::erase_if(named->second, [&](const auto& registration) {
            if (!isOut(*registration)) return false;
            registration->isActive = false;
            out.push_back(registration);
            return true;
        });
        if (named->second.empty()) byName_.erase(named);
        return out;
    }

    std::unordered_map<std::string, Snapshot> byName_;
};

}  // namespace Platform
