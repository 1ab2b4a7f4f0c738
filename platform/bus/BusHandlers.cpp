#include "platform/bus/BusHandlers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace Platform {

namespace {

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
    return on(Occasion::joined, std::move(handler));
}

Subscription BusConnection::onLost(std::function<void()> handler)
{
    return on(Occasion::lost, std::move(handler));
}

Subscription BusConnection::onDrained(std::function<void()> handler)
{
    return on(Occasion::drained, std::move(handler));
}

Subscription BusConnection::on(Occasion occasion, std::function<void()> handler)
{
    auto kept = std::make_shared<Handler>();
    kept->occasion = occasion;
    kept->happened = std::move(handler);
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
