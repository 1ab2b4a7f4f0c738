#pragma once

#include "platform/ui/Color.h"

namespace Lorrel {

// What the menu bar looks like, for code that has no controller at hand. Main thread.
class MenuBar {
public:
    MenuBar() = delete;

    // By the main item of the controller that was made last; false without one.
    static bool isDark();
};

// Black on a light menu bar, white on a dark one.
Platform::Color menuBarTextColor();

}  // namespace Lorrel
