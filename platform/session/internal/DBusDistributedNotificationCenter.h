#pragma once

#include <memory>

#include "platform/session/DistributedNotificationCenter.h"

namespace Platform {

class BusConnection;

// Distributed notifications as signals of one interface on the session bus,
// with name and object as first and second argument. The daemon compares both,
// so that nobody is woken by what concerns others.
class DBusDistributedNotificationCenter final : public DistributedNotificationCenter {
public:
    explicit DBusDistributedNotificationCenter(std::shared_ptr<BusConnection> connection);
    ~DBusDistributedNotificationCenter() override;

    void addObserver(ObserverAction action, const NotificationName& name,
                     const std::optional<std::string>& object) override;
    void removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name) override;
    void post(const NotificationName& name, const std::optional<std::string>& object) override;

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace Platform
