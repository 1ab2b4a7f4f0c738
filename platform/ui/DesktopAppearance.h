#pragma once

#include <functional>
#include <memory>

#include "platform/runtime/Subscription.h"
#include "platform/ui/Appearance.h"
#include "platform/ui/Color.h"

namespace Platform {

// What the desktop says about its look. Without a desktop: light, with a blue accent.
// Thread: any may ask; observers are registered and called on the main thread.
class DesktopAppearance {
public:
    static DesktopAppearance& shared();
    virtual ~DesktopAppearance() = default;

    virtual Appearance appearance() const { return Appearance(Appearance::aqua); }
    virtual Color accentColor() const;
    // Called after appearance() or accentColor() has changed.
    virtual Subscription observe(std::function<void()>) { return {}; }
};

}  // namespace Platform
