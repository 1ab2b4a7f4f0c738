#pragma once

#include <memory>

#include "platform/ui/Appearance.h"

namespace Lorrel {

// Whether the look that is being drawn for has a name that speaks of dark.
bool isDarkAppearance();

// Whether the name of the object's effective look is exactly that of the
// plain dark one; other dark looks do not count. For views and windows.
template <typename Object>
bool isDark(const Object& object)
{
    return object.effectiveAppearance().name() == Platform::Appearance::darkAqua;
}

}  // namespace Lorrel
