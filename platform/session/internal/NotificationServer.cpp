#include "platform/session/internal/NotificationServer.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

#include "platform/runtime/Log.h"
#include "platform/session/internal/NotificationText.h"

namespace Platform {

namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr const char* daemonName = "org.freedesktop.DBus";
constexpr const char* rules[] = {
    "type='signal',sender='org.freedesktop.Notifications',interface='org.freedesktop.Notifications'",
    "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.freedesktop.Notifications'",
};

std::vector<std::string> readTexts(BusMessage& message)
{
    std::vector<std::string> texts;
    if (sd_bus_message_enter_container(message.get(), 'a', "s") <= 0) return texts;
    while (auto text = message.readText()) texts.push_back(*std::move(text));
    sd_bus_message_exit_container(message.get());
    return texts;
}

bool contains(const std::vector<std::string>& texts, std::string_view wanted)
{
    return std::find(texts.begin(), texts.end(), wanted) != texts.end();
}

// The arguments of Notify behind the program's name; false when the bus cannot carry them.
bool appendContent(BusMessage& call, const UserNotificationContent& content, bool takesMarkup)
{
    const std::string plain = plainLines(content.body);
    bool isWhole = sd_bus_message_append(call.get(), "us", 0, "") >= 0;
    isWhole = isWhole && call.append(oneLine(content.title)) && call.append(takesMarkup ? escapedMarkup(plain) : plain);
    isWhole = isWhole && sd_bus_message_open_container(call.get(), 'a', "s") >= 0;
    for (const auto& [key, label] : content.actions)
        isWhole = isWhole && call.append(key) && call.append(oneLine(label));
    isWhole = isWhole && sd_bus_message_close_container(call.get()) >= 0;
    const int hints = content.hasDefaultSound
                          ? sd_bus_message_append(call.get(), "a{sv}", 1, "sound-name", "s", "message-new-instant")
                          : sd_bus_message_append(call.get(), "a{sv}", 0);
    constexpr std::int32_t usualExpiry = -1;
    return isWhole && hints >= 0 && sd_bus_message_append(call.get(), "i", usualExpiry) >= 0;
}

}  // namespace

NotificationServer::NotificationServer(std::shared_ptr<BusConnection> connection, std::chrono::nanoseconds deadline,
                                       Events events)
    : connection_(std::move(connection)), deadline_(deadline), events_(std::move(events))
{
    // The connection calls these only while the subscriptions live, so while this object does.
    subscriptions_.push_back(connection_->onSignal(service, "NotificationClosed", [this](BusMessage m) { closed(m); }));
    subscriptions_.push_back(connection_->onSignal(service, "ActionInvoked", [this](BusMessage m) { invoked(m); }));
    subscriptions_.push_back(
        connection_->onSignal(daemonName, "NameOwnerChanged", [this](BusMessage m) { ownerChanged(m); }));
    subscriptions_.push_back(connection_->onJoined([this] { listen(); }));
    if (connection_->join()) listen();
}

BusMessage NotificationServer::newDaemonCall(const char* member)
{
    return connection_->newCall(daemonName, "/org/freedesktop/DBus", daemonName, member);
}

// Asks for the signals without waiting for the bus's consent: it handles our
// calls in order, so whatever follows is heard.
void NotificationServer::listen()
{
    for (const char* rule : rules) {
        BusMessage call = newDaemonCall("AddMatch");
        if (!call || !call.append(rule)) return;
        connection_->call(call, deadline_, [](const Result<BusMessage>& reply) {
            if (!reply) log("notifications: " + reply.error().message());
        });
    }
}

void NotificationServer::isThere(std::function<void(Result<bool>)> answer)
{
    if (!connection_->join()) return answer(Error{"connect", "session bus", 0, "there is none"});
    BusMessage owned = newDaemonCall("NameHasOwner");
    if (owned) owned.append(service);
    const auto startable = [answer](Result<BusMessage> reply) {
        if (!reply) return answer(reply.error());
        answer(contains(readTexts(*reply), service));
    };
    connection_->call(owned, deadline_,
                      [this, alive = std::weak_ptr(alive_), answer, startable](const Result<BusMessage>& reply) {
                          int hasOwner = 0;
                          if (!reply) return answer(reply.error());
                          sd_bus_message_read(reply->get(), "b", &hasOwner);
                          if (hasOwner != 0) return answer(true);
                          if (alive.lock())
                              connection_->call(newDaemonCall("ListActivatableNames"), deadline_, startable);
                      });
}

void NotificationServer::takesMarkup(std::function<void(bool)> answer)
{
    if (takesMarkup_) return answer(*takesMarkup_);
    const BusMessage call = connection_->newCall(service, path, service, "GetCapabilities");
    connection_->call(call, deadline_, [this, alive = std::weak_ptr(alive_), answer](Result<BusMessage> reply) {
        if (!alive.lock()) return;
        if (reply) takesMarkup_ = contains(readTexts(*reply), "body-markup");
        answer(takesMarkup_.value_or(true));
    });
}

void NotificationServer::notify(const UserNotificationContent& content, bool takesMarkup,
                                std::function<void(Result<std::uint32_t>)> answer)
{
    connection_->join();
    BusMessage call = connection_->newCall(service, path, service, "Notify");
    if (!call) return answer(Error{"connect", "session bus", 0, "there is none"});
    if (!call.append(program_invocation_short_name) || !appendContent(call, content, takesMarkup)) {
        return answer(Error{"Notify", content.title, 0, "the bus cannot carry it"});
    }
    connection_->call(call, deadline_, [answer](const Result<BusMessage>& reply) {
        std::uint32_t id = 0;
        if (!reply) return answer(reply.error());
        if (sd_bus_message_read(reply->get(), "u", &id) <= 0)
            return answer(Error{"Notify", service, 0, "no identifier came"});
        answer(id);
    });
}

void NotificationServer::closed(BusMessage message)
{
    using Kind = UserNotificationResponse::Kind;
    std::uint32_t id = 0;
    std::uint32_t reason = 0;
    if (sd_bus_message_read(message.get(), "uu", &id, &reason) <= 0) return;
    events_.ended(id, {reason == 1 ? Kind::expired : reason == 2 ? Kind::dismissed : Kind::closed, {}});
}

void NotificationServer::invoked(BusMessage message)
{
    std::uint32_t id = 0;
    if (sd_bus_message_read(message.get(), "u", &id) <= 0) return;
    if (auto key = message.readText()) events_.ended(id, {UserNotificationResponse::Kind::action, *std::move(key)});
}

void NotificationServer::ownerChanged(BusMessage message)
{
    if (message.readText() != service) return;
    takesMarkup_.reset();
    events_.changed();
}

}  // namespace Platform
