#pragma once

#include "platform/session/DistributedNotificationCenter.h"
#include "platform/session/internal/ObserverTable.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A session of one process: posts reach the observers before post() returns.
class FakeDistributedNotificationCenter final : public Platform::DistributedNotificationCenter {
public:
    using Object = std::optional<std::string>;
    using Posted = std::pair<std::string, Object>;

    void addObserver(Platform::ObserverAction action, const Platform::NotificationName& name,
                     const Object& object) override
    {
        table_.add(name, std::move(action), {object});
        ++observerCount_;
    }
    void removeObserver(const std::shared_ptr<const void>& observer, const Platform::NotificationName& name) override
    {
        observerCount_ -= table_.remove(name, observer).size();
    }
    void post(const Platform::NotificationName& name, const Object& object) override
    {
        posted.emplace_back(name.text(), object);
        const Platform::Notification notification{name, object, nullptr};
        table_.call(table_.matching(notification), notification);
    }

    std::size_t observerCount() const { return observerCount_; }

    std::vector<Posted> posted;

private:
    struct Filter {
        Object object;
        bool accepts(const Platform::Notification& notification) const
        {
            return !object || object == notification.object;
        }
    };
    Platform::ObserverTable<Filter> table_;
    std::size_t observerCount_ = 0;
};

using ReplacedDistributedNotificationCenter =
    Replaced<Platform::DistributedNotificationCenter, FakeDistributedNotificationCenter>;

}  // namespace Tests
