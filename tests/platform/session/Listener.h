#pragma once

#include <functional>

#include "platform/session/Notification.h"

namespace Tests {

// Keeps the objects of what it hears, and then does what a test wants.
struct Listener {
    std::vector<std::optional<std::string>> heard;
    std::function<void()> then = [] {};

    void hear(const Platform::Notification& notification)
    {
        heard.push_back(notification.object);
        const auto next = then;
        next();
    }
};

}  // namespace Tests
