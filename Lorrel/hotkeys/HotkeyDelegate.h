#pragma once

#include "Lorrel/hotkeys/Hotkey.h"

namespace Lorrel {

// Hears of every shortcut of a controller that goes down. Main thread.
class HotkeyDelegate {
public:
    virtual ~HotkeyDelegate() = default;
    virtual void hotkeyPressed(const Hotkey& hotkey) = 0;
};

}  // namespace Lorrel
