#pragma once

#include <memory>

#include "platform/ui/DesktopAppearance.h"

namespace Platform {

// Follows the desktop portal's colour scheme and accent colour; where there is
// no portal, the lightness of the toolkit's palette once there is one.
class PortalAppearance final : public DesktopAppearance {
public:
    PortalAppearance();
    ~PortalAppearance() override;

    Appearance appearance() const override;
    Color accentColor() const override;
    Subscription observe(std::function<void()> observer) override;

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace Platform
