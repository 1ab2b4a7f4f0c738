#pragma once

#include <memory>
#include <string>

#include "platform/runtime/Result.h"

namespace Platform {

// One program that can be registered to start at login. Thread: main.
class ApplicationService {
public:
    enum class Status {
        notRegistered = 0,
        enabled = 1,
        requiresApproval = 2,  // the user has switched it off in the session's settings
        notFound = 3,          // there is no such program (any more)
    };

    virtual ~ApplicationService() = default;

    // Read anew on every call.
    virtual Status status() const = 0;
    // Refused when the user has switched it off, and when the program is not found.
    virtual Result<void> register_() = 0;
    // Refused when the user has switched it off, and when it is not registered.
    virtual Result<void> unregister() = 0;
};

// Where the services of this program come from. Thread: main.
class ApplicationServices {
public:
    static ApplicationServices& shared();
    virtual ~ApplicationServices() = default;

    // This program itself.
    virtual std::shared_ptr<ApplicationService> mainAppService() = 0;
    // A starter application inside this program's bundle.
    virtual std::shared_ptr<ApplicationService> loginItemService(const std::string& identifier) = 0;
    // Shows the page of the system's settings where the user approves login items.
    virtual void openSystemSettingsLoginItems() = 0;
};

}  // namespace Platform
