#pragma once

#include <memory>
#include <string>

#include "platform/bus/BusConnection.h"

namespace Platform {

// What somebody registered: one of the functions is set.
struct BusConnection::Handler {
    bool isActive = true;
    std::string interfaceOrPath;
    std::string member;
    SignalHandler signal;
    CallHandler call;
    Occasion occasion = Occasion::none;
    std::function<void()> happened;
};

// A call whose reply has not come.
struct BusConnection::PendingCall {
    BusConnection* owner = nullptr;
    std::string subject;
    std::shared_ptr<bool> isAnswered;
    Completion completion;
    BusSlot slot;

    // Nobody waits for it any longer.
    Completion fail()
    {
        *isAnswered = true;
        return std::move(completion);
    }
};

}  // namespace Platform
