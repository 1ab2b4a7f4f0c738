#pragma once

namespace Lorrel {

// Whether an application starts at login. The state lives in the session and
// is read anew every time; failures show in isEnabled() only. Thread: main.
class IAutoStartController {
public:
    virtual ~IAutoStartController() = default;

    virtual bool isEnabled() const = 0;
    // The main application calls it when it has started.
    virtual void handleMainAppLaunch() = 0;
    virtual void setEnabled(bool isEnabled) = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;
};

}  // namespace Lorrel
