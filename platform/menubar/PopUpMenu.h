#pragma once

#include "platform/menubar/Menu.h"

namespace Platform {

// Opens the menu at the pointer, in a window of this program: for a hotkey
// where the tray host opens none. It follows the menu's changes, tells its
// delegate, and closes when an item is chosen, by Escape or by a click beside
// it. False, and nothing opens, where there is no screen or nothing to show.
// Call it when no key of the hotkey is held, or the menu does not get the
// keyboard. Returns at once; one that is open closes. Thread: main.
bool popUp(const MenuRef& menu);

}  // namespace Platform
