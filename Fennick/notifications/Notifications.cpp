#include "Fennick/notifications/Notifications.h"

#include <string>
#include <utility>

#include "Fennick/notifications/internal/Uuid.h"
#include "platform/session/UserNotificationCenter.h"

namespace Fennick {

using Platform::AlertStyle;
using Platform::AuthorizationStatus;
using Platform::UserNotificationCenter;
using Platform::UserNotificationSettings;

namespace {

bool isAuthorized(const UserNotificationSettings& settings)
{
    const auto status = settings.authorizationStatus;
    return status == AuthorizationStatus::authorized || status == AuthorizationStatus::provisional;
}

bool isShown(const UserNotificationSettings& settings)
{
    return settings.alertStyle == AlertStyle::banner || settings.alertStyle == AlertStyle::alert;
}

}  // namespace

void Notifications::requestAuthorization(std::function<void(Platform::Result<bool>)> completion)
{
    namespace Options = Platform::AuthorizationOptions;
    UserNotificationCenter::shared().requestAuthorization(
        Options::alert | Options::sound | Options::badge,
        [completion = std::move(completion)](Platform::Result<bool> granted) {
            if (completion) completion(std::move(granted));
        });
}

void Notifications::canNotify(std::function<void(bool)> completion)
{
    UserNotificationCenter::shared().settings([completion = std::move(completion)](const auto& settings) {
        completion(isAuthorized(settings) && isShown(settings));
    });
}

void Notifications::send(std::string_view title, std::string_view body,
                         std::function<void(std::optional<Platform::Error>)> completion)
{
    Platform::UserNotificationRequest request;
    request.identifier = randomUuidText();
    request.content.title = title;
    request.content.body = body;
    request.content.hasDefaultSound = true;
    UserNotificationCenter::shared().settings(
        [request = std::move(request), completion = std::move(completion)](const auto& settings) {
            if (isAuthorized(settings)) UserNotificationCenter::shared().add(request, completion);
        });
}

void Notifications::removeObserver(const std::shared_ptr<const void>& observer, const Name& name)
{
    center().removeObserver(observer, name);
}

void Notifications::removeObserver(const std::shared_ptr<const void>& observer, std::string_view name)
{
    removeObserver(observer, Name(name));
}

void Notifications::post(const Name& name, const std::shared_ptr<const void>& object)
{
    center().post(name, object);
}

void Notifications::post(std::string_view name)
{
    post(Name(name));
}

}  // namespace Fennick
