#pragma once

#include <memory>

#include "Lorrel/hotkeys/HotkeyDelegate.h"

namespace Lorrel {

// Global shortcuts as applications hold them. Main thread.
class IHotkeyController {
public:
    virtual ~IHotkeyController() = default;

    // Held strongly.
    virtual std::shared_ptr<HotkeyDelegate> delegate() const = 0;
    virtual void setDelegate(std::shared_ptr<HotkeyDelegate> delegate) = 0;

    // A refusal of the system is silent.
    virtual void register_(const Hotkey& shortcut) = 0;
    virtual void unregister(const Hotkey& shortcut) = 0;
    // Also those of every other controller of the process.
    virtual void unregisterAll() = 0;
};

}  // namespace Lorrel
