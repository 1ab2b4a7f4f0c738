#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/session/DistributedNotificationCenter.h"
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
        registrations_.push_back({std::move(action), name, object});
    }
    void removeObserver(const std::shared_ptr<const void>& observer, const Platform::NotificationName& name) override
    {
        std::erase_if(registrations_, [&](const Registration& registration) {
            return registration.name == name && registration.action.isOf(observer);
        });
    }
    void post(const Platform::NotificationName& name, const Object& object) override
    {
        posted.emplace_back(name.text(), object);
        const auto registrations = registrations_;
        for (const auto& registration : registrations) {
            if (registration.name == name && (!registration.object || registration.object == object)) {
                registration.action.call({name, object, nullptr});
            }
        }
    }

    std::size_t observerCount() const { return registrations_.size(); }

    std::vector<Posted> posted;

private:
    struct Registration {
        Platform::ObserverAction action;
        Platform::NotificationName name;
        Object object;
    };
    std::vector<Registration> registrations_;
};

using ReplacedDistributedNotificationCenter =
    Replaced<Platform::DistributedNotificationCenter, FakeDistributedNotificationCenter>;

}  // namespace Tests
