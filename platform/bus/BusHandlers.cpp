#include "platform/bus/BusHandlers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/runtime/Log.h"

namespace Platform {

namespace {

constexpr const char* daemonName = "org.freedesktop.DBus";

bool matches(const std::string& wanted, const char* actual)
{
    return wanted.empty() || (actual && wanted == actual);
}

Result<BusMessage> resultOf(const BusMessage& reply, const std::string& subject)
{
    const sd_bus_error* error = sd_bus_message_get_error(reply.get());
    if (!error) return reply;
    return Error{"sd_bus_call", subject, sd_bus_message_get_errno(reply.get()), error->message ? error->message : ""};
}

}  // namespace

Subscription BusConnection::keep(std::shared_ptr<Handler> handler)
{
    handlers_.push_back(handler);
    return Subscription([weak = weak_from_this(), handler] {
        handler->isActive = false;
        if (const auto self = weak.lock()) std::erase(self->handlers_, handler);
    });
}

Subscription BusConnection::onJoined(std::function<void()> handler)
{
    auto kept = std::make_shared<Handler>();
    kept->joined = std::move(handler);
    return keep(std::move(kept));
}

Subscription BusConnection::onSignal(std::string interface, std::string member, SignalHandler handler)
{
    auto kept = std::make_shared<Handler>();
    kept->interfaceOrPath = std::move(interface);
    kept->member = std::move(member);
    kept->signal = std::move(handler);
    return keep(std::move(kept));
}

Subscription BusConnection::exportObject(std::string path, CallHandler handler)
{
    auto kept = std::make_shared<Handler>();
    kept->interfaceOrPath = std::move(path);
    kept->call = std::move(handler);
    return keep(std::move(kept));
}

Subscription BusConnection::matchRule(const std::string& rule)
{
    if (++rules_[rule] == 1 && link_) {
        if (const auto agreed = addRule(rule)) waitUntil([agreed] { return *agreed; });
    } else if (!link_ && join()) {
        if (const auto agreed = start(newDaemonCall("GetId"), UINT64_MAX, nullptr)) {
            waitUntil([agreed] { return *agreed; });  // answered after all rules, that were sent before
        }
    }
    return Subscription([weak = weak_from_this(), rule] {
        if (const auto self = weak.lock()) self->removeRule(rule);
    });
}

std::shared_ptr<bool> BusConnection::addRule(const std::string& rule)
{
    BusMessage call = newDaemonCall("AddMatch");
    if (!call || !call.append(rule)) {
        log("session bus: a rule cannot be sent: " + rule);
        return nullptr;
    }
    return start(call, UINT64_MAX, [rule](const Result<BusMessage>& reply) {
        if (!reply && reply.error().code != ENOTCONN) log("session bus refuses " + rule + ": " + reply.error().reason);
    });
}

void BusConnection::removeRule(const std::string& rule)
{
    if (--rules_[rule] > 0) return;
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

int BusConnection::onFilter(sd_bus_message* message, void* self, sd_bus_error*)
{
    return static_cast<BusConnection*>(self)->accept(message);
}

// Keeps what a handler wants. 1 tells the library that a call needs no other answer.
int BusConnection::accept(sd_bus_message* message)
{
    const bool isCall = sd_bus_message_is_method_call(message, nullptr, nullptr) > 0;
    if (!isCall && sd_bus_message_is_signal(message, nullptr, nullptr) <= 0) return 0;
    const char* path = sd_bus_message_get_path(message);
    const char* interface = sd_bus_message_get_interface(message);
    const char* member = sd_bus_message_get_member(message);
    const bool isPeer = interface && std::strcmp(interface, "org.freedesktop.DBus.Peer") == 0;
    const bool isWanted = std::ranges::any_of(handlers_, [&](const auto& handler) {
        if (isCall) return !isPeer && handler->call && matches(handler->interfaceOrPath, path);
        return handler->signal && matches(handler->interfaceOrPath, interface) && matches(handler->member, member);
    });
    if (isWanted) arrivals_.push_back({BusMessage::sharing(message), nullptr, {}});
    return isWanted && isCall;
}

void BusConnection::dispatch(const Arrival& arrival)
{
    if (!arrival.message) {
        if (arrival.completion) arrival.completion(Error::fromErrno("sd_bus_call", arrival.subject, ENOTCONN));
    } else if (arrival.completion) {
        arrival.completion(resultOf(arrival.message, arrival.subject));
    } else {
        dispatchToHandlers(arrival.message);
    }
}

void BusConnection::dispatchToHandlers(const BusMessage& message)
{
    const bool isCall = sd_bus_message_is_method_call(message.get(), nullptr, nullptr) > 0;
    const auto handlers = handlers_;
    for (const auto& handler : handlers) {
        if (!handler->isActive) continue;
        sd_bus_message_rewind(message.get(), true);
        if (isCall && handler->call && matches(handler->interfaceOrPath, sd_bus_message_get_path(message.get()))) {
            send(handler->call(message));
            return;
        }
        if (!isCall && handler->signal &&
            matches(handler->interfaceOrPath, sd_bus_message_get_interface(message.get())) &&
            matches(handler->member, sd_bus_message_get_member(message.get()))) {
            handler->signal(message);
        }
    }
}

}  // namespace Platform
