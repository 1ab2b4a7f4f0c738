#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/session/NotificationName.h"

namespace Platform {

// One notification as its observers see it.
struct Notification {
    NotificationName name;
    // Between processes: the object's text, where the poster gave one.
    std::optional<std::string> object;
    // Inside one process: who posted it, where the poster said so.
    std::shared_ptr<const void> sender;
};

}  // namespace Platform
