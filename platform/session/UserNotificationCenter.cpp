#include "platform/session/UserNotificationCenter.h"

#include "platform/bus/BusConnection.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/session/internal/DBusUserNotificationCenter.h"

namespace Platform {

UserNotificationCenter& UserNotificationCenter::shared()
{
    return Shared<UserNotificationCenter>::get(
        [] { return std::make_unique<DBusUserNotificationCenter>(BusConnection::session(), RunLoop::main()); });
}

}  // namespace Platform
