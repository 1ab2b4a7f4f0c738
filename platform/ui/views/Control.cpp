#include "platform/ui/views/Control.h"

namespace Platform {

void Control::setEnabled(bool enabled)
{
    isEnabled_ = enabled;
    setNeedsDisplay(true);
}

// The action may let go of the control, and of itself.
void Control::performClick()
{
    const ViewRef self = shared_from_this();
    const Action action = action_;
    const auto receiver = target();
    if (isEnabled_ && receiver) action(*receiver, *this);
}

bool Control::mouseUp(Point)
{
    performClick();
    return true;
}

}  // namespace Platform
