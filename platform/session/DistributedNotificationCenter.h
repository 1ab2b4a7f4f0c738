#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/session/ObserverAction.h"

namespace Platform {

// Notifications between the processes of one login session. Observers are held
// weakly and called from the main run loop, in the order of registration; one
// that is registered twice is called twice. Nothing is ever reported: without
// a session to ask, the operations do nothing.
// Thread: main.
class DistributedNotificationCenter {
public:
    // The default centre.
    static DistributedNotificationCenter& shared();
    virtual ~DistributedNotificationCenter() = default;

    // With an object (the empty text is one) only notifications of an equal
    // object, without one all of the name. Once this returns, what any process
    // posts reaches the observer; waits at most 2 s for that.
    virtual void addObserver(ObserverAction action, const NotificationName& name,
                             const std::optional<std::string>& object) = 0;
    // Ends every registration of the observer for the name, whatever the object.
    virtual void removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name) = 0;
    // Has left this process when it returns, so that the process may end; waits at most 2 s for that.
    virtual void post(const NotificationName& name, const std::optional<std::string>& object) = 0;
};

}  // namespace Platform
