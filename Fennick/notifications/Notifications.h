#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/runtime/Result.h"
#include "platform/session/NotificationCenter.h"

namespace Fennick {

// Notifications to the user, and those inside the process.
//
// The first three answer through callbacks on the main run loop and never
// wait; errors reach the callback and nothing is retried. Thread: any.
class Notifications {
public:
    using Name = Platform::NotificationName;

    Notifications() = delete;

    // Asks for alerts, sounds and badges; whether that is granted.
    static void requestAuthorization(std::function<void(Platform::Result<bool>)> completion = nullptr);
    // Whether a banner or an alert would be shown.
    static void canNotify(std::function<void(bool)> completion);
    // Shows a notification with the default sound. Where that is not permitted
    // nothing happens and the completion is not called; else it gets the error, or none.
    static void send(std::string_view title, std::string_view body,
                     std::function<void(std::optional<Platform::Error>)> completion = nullptr);

    // The operation takes the notification or nothing and is called on the
    // posting thread while the observer lives. Without an object any sender counts.
    template <typename Observer, typename Operation>
    static void addObserver(const std::shared_ptr<Observer>& observer, Operation operation, const Name& name,
                            const std::shared_ptr<const void>& object = nullptr)
    {
        center().addObserver(Platform::ObserverAction(observer, operation), name, object);
    }
    template <typename Observer, typename Operation>
    static void addObserver(const std::shared_ptr<Observer>& observer, Operation operation, std::string_view name,
                            const std::shared_ptr<const void>& object = nullptr)
    {
        addObserver(observer, operation, Name(name), object);
    }
    static void removeObserver(const std::shared_ptr<const void>& observer, const Name& name);
    static void removeObserver(const std::shared_ptr<const void>& observer, std::string_view name);
    static void post(const Name& name, const std::shared_ptr<const void>& object = nullptr);
    static void post(std::string_view name);

private:
    static Platform::NotificationCenter& center() { return Platform::NotificationCenter::shared(); }
};

}  // namespace Fennick
