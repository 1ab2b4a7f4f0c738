#include "platform/session/internal/DBusDistributedNotificationCenter.h"

#include <utility>

#include "platform/bus/BusConnection.h"
#include "platform/runtime/Shared.h"
#include "platform/session/internal/ObserverTable.h"

namespace Platform {

namespace {

constexpr const char* path = "/com/orvane/DistributedNotification";
constexpr const char* interface = "com.orvane.DistributedNotification";
constexpr const char* member = "Posted";
// The daemon refuses longer rules.
constexpr std::size_t longestRule = 1024;

struct ObjectFilter {
    std::optional<std::string> object;
    Subscription rule;

    bool accepts(const Notification& notification) const { return !object || object == notification.object; }
};

// A quote ends a rule's quoted part; outside of quotes it is written \'.
std::string quoted(const std::string& text)
{
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'') {
            result += "'\\''";
        } else {
            result += c;
        }
    }
    return result + "'";
}

// A rule that would be too long leaves the comparison to us.
std::string ruleFor(const NotificationName& name, const std::optional<std::string>& object)
{
    const std::string ours = std::string("type='signal',interface='") + interface + "',member='" + member + "'";
    const std::string named = ours + ",arg0=" + quoted(name.text());
    const std::string whole = object ? named + ",arg1=" + quoted(*object) : named;
    if (whole.size() <= longestRule) return whole;
    return named.size() <= longestRule ? named : ours;
}

}  // namespace

struct DBusDistributedNotificationCenter::State {
    std::shared_ptr<BusConnection> connection;
    ObserverTable<ObjectFilter> table;
    Subscription signal;

    void arrived(BusMessage message)
    {
        const auto name = message.readText();
        if (!name) return;
        const Notification notification{NotificationName(*name), message.readText(), nullptr};
        if (!table.call(table.matching(notification), notification)) table.removeGone(notification.name);
    }
};

DistributedNotificationCenter& DistributedNotificationCenter::shared()
{
    return Shared<DistributedNotificationCenter>::get(
        [] { return std::make_unique<DBusDistributedNotificationCenter>(BusConnection::session()); });
}

DBusDistributedNotificationCenter::DBusDistributedNotificationCenter(std::shared_ptr<BusConnection> connection)
    : state_(std::make_shared<State>())
{
    state_->connection = std::move(connection);
    state_->signal =
        state_->connection->onSignal(interface, member, [weak = std::weak_ptr(state_)](BusMessage message) {
            if (const auto state = weak.lock()) state->arrived(std::move(message));
        });
}

DBusDistributedNotificationCenter::~DBusDistributedNotificationCenter() = default;

void DBusDistributedNotificationCenter::addObserver(ObserverAction action, const NotificationName& name,
                                                    const std::optional<std::string>& object)
{
    if (action.isGone()) return;
    ObjectFilter filter{object, state_->connection->matchRule(ruleFor(name, object))};
    state_->table.add(name, std::move(action), std::move(filter));
}

void DBusDistributedNotificationCenter::removeObserver(const std::shared_ptr<const void>& observer,
                                                       const NotificationName& name)
{
    state_->table.remove(name, observer);
}

void DBusDistributedNotificationCenter::post(const NotificationName& name, const std::optional<std::string>& object)
{
    if (!state_->connection->join()) return;
    BusMessage message = state_->connection->newSignal(path, interface, member);
    if (!message || !message.append(name.text())) return;
    if (object && !message.append(*object)) return;
    state_->connection->send(message);
    state_->connection->flush();
}

}  // namespace Platform
