#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/session/DistributedNotificationCenter.h"
#include "platform/session/NotificationName.h"

namespace Lorrel {

// Signals between the processes of one user through the default distributed
// notification centre. The observer is held weakly; the operation is a member
// function of it that takes a `const Platform::Notification&` or nothing.
// Thread: main; observers are called from the main run loop.
class DistributedNotifications {
public:
    DistributedNotifications() = delete;

    // Whatever the object.
    template <typename Observer, typename Operation>
    static void addObserver(const std::shared_ptr<Observer>& observer, Operation operation,
                            const Platform::NotificationName& name)
    {
        add({observer, operation}, name, std::nullopt);
    }
    template <typename Observer, typename Operation>
    static void addObserver(const std::shared_ptr<Observer>& observer, Operation operation, std::string_view name)
    {
        add({observer, operation}, Platform::NotificationName(name), std::nullopt);
    }
    // With an object only notifications of an equal one.
    template <typename Observer, typename Operation>
    static void addObserver(const std::shared_ptr<Observer>& observer, Operation operation, std::string_view name,
                            const std::optional<std::string>& object)
    {
        add({observer, operation}, Platform::NotificationName(name), object);
    }

    // Ends all registrations of the observer for the name, whatever their object.
    static void removeObserver(const std::shared_ptr<const void>& observer, const Platform::NotificationName& name);
    static void removeObserver(const std::shared_ptr<const void>& observer, std::string_view name);

    // Delivered at once, without user information.
    static void post(std::string_view name, const std::optional<std::string>& object);

private:
    static void add(Platform::ObserverAction action, const Platform::NotificationName& name,
                    const std::optional<std::string>& object);
};

}  // namespace Lorrel
