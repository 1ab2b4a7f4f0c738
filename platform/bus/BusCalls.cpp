#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/bus/BusHandlers.h"
#include "platform/runtime/Log.h"

// What a connection sends: rules, messages and calls. Their answers and what
// others send are handed out beside the handlers.

namespace Platform {

namespace {

constexpr const char* daemonName = "org.freedesktop.DBus";

}  // namespace

Subscription BusConnection::matchRule(const std::string& rule)
{
    Subscription keeper = matchRuleSoon(rule);
    if (const auto agreed = rules_[rule].isAgreed) waitUntil([agreed] { return *agreed; });
    return keeper;
}

Subscription BusConnection::matchRuleSoon(const std::string& rule)
{
    if (++rules_[rule].users == 1 && link_) addRule(rule);
    if (!link_) join();
    return ruleKeeper(rule);
}

Subscription BusConnection::ruleKeeper(const std::string& rule)
{
    return Subscription([weak = weak_from_this(), rule] {
        if (const auto self = weak.lock()) self->removeRule(rule);
    });
}

void BusConnection::addRule(const std::string& rule)
{
    BusMessage call = newDaemonCall("AddMatch");
    if (!call || !call.append(rule)) {
        log("session bus: a rule cannot be sent: " + rule);
        return;
    }
    rules_[rule].isAgreed = start(call, UINT64_MAX, [rule](const Result<BusMessage>& reply) {
        if (!reply && reply.error().code != ENOTCONN) log("session bus refuses " + rule + ": " + reply.error().reason);
    });
}

void BusConnection::removeRule(const std::string& rule)
{
    if (--rules_[rule].users > 0) return;
    rules_.erase(rule);
    BusMessage call = newDaemonCall("RemoveMatch");
    if (!call || !call.append(rule)) return;
    sd_bus_message_set_expect_reply(call.get(), false);
    send(call);
}

BusMessage BusConnection::newSignal(const char* path, const char* interface, const char* member)
{
    sd_bus_message* message = nullptr;
    if (link_) sd_bus_message_new_signal(link_->bus(), &message, path, interface, member);
    return BusMessage(message);
}

BusMessage BusConnection::newCall(const char* destination, const char* path, const char* interface, const char* member)
{
    sd_bus_message* message = nullptr;
    if (link_) sd_bus_message_new_method_call(link_->bus(), &message, destination, path, interface, member);
    return BusMessage(message);
}

BusMessage BusConnection::newDaemonCall(const char* member)
{
    return newCall(daemonName, "/org/freedesktop/DBus", daemonName, member);
}

void BusConnection::send(const BusMessage& message)
{
    if (!link_ || !message) return;
    const int sent = sd_bus_send(link_->bus(), message.get(), nullptr);
    if (sent < 0) log(Error::fromErrno("sd_bus_send", message.member(), -sent).message());
    if (isReady_ && link_->hasUnsent()) isBacklogged_ = true;
}

void BusConnection::call(const BusMessage& message, std::chrono::nanoseconds deadline, Completion completion)
{
    const auto wait = std::chrono::duration_cast<std::chrono::microseconds>(deadline);
    start(message, static_cast<std::uint64_t>(std::max<std::int64_t>(1, wait.count())), std::move(completion));
}

// The flag becomes true with the reply, before the completion is called from the loop.
std::shared_ptr<bool> BusConnection::start(const BusMessage& message, std::uint64_t microseconds, Completion completion)
{
    auto call = std::make_unique<PendingCall>();
    call->owner = this;
    call->isAnswered = std::make_shared<bool>(false);
    call->completion = std::move(completion);
    if (message) call->subject = message.member();

    sd_bus_slot* slot = nullptr;
    const int sent = link_ && message
                         ? sd_bus_call_async(link_->bus(), &slot, message.get(), onReply, call.get(), microseconds)
                         : -ENOTCONN;
    const auto isAnswered = call->isAnswered;
    if (sent < 0) {
        arrivals_.push_back({{}, call->fail(), call->subject});
        scheduleDelivery();
        return isAnswered;
    }
    call->slot.reset(slot);
    pending_.push_back(std::move(call));
    return isAnswered;
}

int BusConnection::onReply(sd_bus_message* message, void* pending, sd_bus_error*)
{
    auto& call = *static_cast<PendingCall*>(pending);
    BusConnection& self = *call.owner;
    self.hasAnswered_ = true;
    Completion completion = call.fail();
    // A link that ends answers what is pending itself, as if it had come too late.
    const bool isReply = sd_bus_is_open(self.link_->bus()) > 0;
    BusMessage reply = isReply ? BusMessage::sharing(message) : BusMessage();
    if (completion) self.arrivals_.push_back({std::move(reply), std::move(completion), call.subject});
    self.pending_.remove_if([&](const auto& other) { return other.get() == &call; });
    return 1;
}

}  // namespace Platform
