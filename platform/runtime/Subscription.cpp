#include "platform/runtime/Subscription.h"

namespace Platform {

Subscription& Subscription::operator=(Subscription&& other) noexcept
{
    if (this != &other) {
        cancel();
        undo_ = std::exchange(other.undo_, nullptr);
    }
    return *this;
}

void Subscription::cancel()
{
    if (auto undo = std::exchange(undo_, nullptr)) undo();
}

}  // namespace Platform
