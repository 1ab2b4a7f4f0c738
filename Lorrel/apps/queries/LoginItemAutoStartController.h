#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Lorrel/apps/queries/IAutoStartController.h"
#include "platform/session/LoginItems.h"

namespace Lorrel {

// Where the list of what starts at login comes from; override it to supply another one.
class LoginItemEnabledJobsProvider {
public:
    virtual ~LoginItemEnabledJobsProvider() = default;

    // The session's own list; absent when it cannot be read.
    virtual std::optional<std::vector<Platform::JobDictionary>> jobDictionaries() const;
};

// Starts the main application at login by a separate starter application, a
// login item inside the main application's bundle. Thread: main.
class LoginItemAutoStartController : public IAutoStartController, public LoginItemEnabledJobsProvider {
public:
    LoginItemAutoStartController(std::optional<std::string> bundleIdentifier, std::string starterIdentifier);

    const std::string& starterIdentifier() const { return starterIdentifier_; }
    const std::optional<std::string>& bundleIdentifier() const { return bundleIdentifier_; }

    // What the first job says whose label contains the starter's identifier.
    bool isEnabled() const override;
    // Tells a running starter to end: "killme" with the main application's identifier as object.
    void handleMainAppLaunch() override;
    void setEnabled(bool isEnabled) override;
    void enable() override { setEnabled(true); }
    void disable() override { setEnabled(false); }

private:
    std::string starterIdentifier_;
    std::optional<std::string> bundleIdentifier_;
};

}  // namespace Lorrel
