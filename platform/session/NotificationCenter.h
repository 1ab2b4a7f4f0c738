#pragma once

#include <memory>

#include "platform/session/ObserverAction.h"

namespace Platform {

// Notifications inside this process. Observers are held weakly, called on the
// posting thread before post() returns, in the order of registration; one that
// is registered twice is called twice.
// Thread: any.
class NotificationCenter {
public:
    // The default centre.
    static NotificationCenter& shared();

    NotificationCenter();
    ~NotificationCenter();

    // With a sender only what it posts, else what anybody posts. The sender is held weakly.
    void addObserver(ObserverAction action, const NotificationName& name,
                     const std::shared_ptr<const void>& sender = nullptr);
    // Ends every registration of the observer for the name, whatever the sender.
    void removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name);
    void post(const NotificationName& name, const std::shared_ptr<const void>& sender = nullptr);

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace Platform
