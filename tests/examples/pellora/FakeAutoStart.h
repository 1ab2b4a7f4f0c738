#pragma once

#include "Lorrel/apps/queries/IAutoStartController.h"

namespace Tests {

// Starting at login as a flag; one that refuses stays off.
struct FakeAutoStart final : Lorrel::IAutoStartController {
    bool isEnabled() const override { return isOn; }
    void handleMainAppLaunch() override {}
    void setEnabled(bool enabled) override { isOn = enabled && !refuses; }
    void enable() override { setEnabled(true); }
    void disable() override { setEnabled(false); }
    bool isOn = false;
    bool refuses = false;
};

}  // namespace Tests
