#include "Lorrel/apps/queries/DistributedNotifications.h"

#include <utility>

using Platform::DistributedNotificationCenter;
using Platform::NotificationName;

namespace Lorrel {

void DistributedNotifications::add(Platform::ObserverAction action, const NotificationName& name,
                                   const std::optional<std::string>& object)
{
    DistributedNotificationCenter::shared().addObserver(std::move(action), name, object);
}

void DistributedNotifications::removeObserver(const std::shared_ptr<const void>& observer, const NotificationName& name)
{
    DistributedNotificationCenter::shared().removeObserver(observer, name);
}

void DistributedNotifications::removeObserver(const std::shared_ptr<const void>& observer, std::string_view name)
{
    removeObserver(observer, NotificationName(name));
}

void DistributedNotifications::post(std::string_view name, const std::optional<std::string>& object)
{
    DistributedNotificationCenter::shared().post(NotificationName(name), object);
}

}  // namespace Lorrel
