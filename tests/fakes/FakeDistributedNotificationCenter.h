#pragma once

#include <memory>
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
        registrations_.push_back(std::make_shared<Registration>(Registration{std::move(action), name, object}));
    }
    void removeObserver(const std::shared_ptr<const void>& observer, const Platform::NotificationName& name) override
    {
        std::erase_if(registrations_, [&](const auto& registration) {
            const bool isOut = registration->name == name && registration->action.isOf(observer);
            registration->isActive = registration->isActive && !isOut;
            return isOut;
        });
    }
    void post(const Platform::NotificationName& name, const Object& object) override
    {
        posted.emplace_back(name.text(), object);
        const auto registrations = registrations_;
        for (const auto& registration : registrations) {
            const bool isWanted = !registration->object || registration->object == object;
            const bool isCalled = registration->isActive && registration->name == name && isWanted;
            if (isCalled) registration->action.call({name, object, nullptr});
        }
    }

    std::size_t observerCount() const { return registrations_.size(); }

    std::vector<Posted> posted;

private:
    struct Registration {
        Platform::ObserverAction action;
        Platform::NotificationName name;
        Object object;
        bool isActive = true;
    };
    std::vector<std::shared_ptr<Registration>> registrations_;
};

using ReplacedDistributedNotificationCenter =
    Replaced<Platform::DistributedNotificationCenter, FakeDistributedNotificationCenter>;

}  // namespace Tests
