#include "Lorrel/hotkeys/HotkeyController.h"

#include "Lorrel/hotkeys/CarbonHotkeyController.h"

namespace Lorrel {

namespace {

// On a copy, because a handler may change the lists.
void callAll(const HotkeyController::Handlers& handlers, const Hotkey& shortcut)
{
    const auto found = handlers.find(shortcut);
    if (found == handlers.end()) return;
    const auto list = found->second;
    for (const auto& handler : list) {
        if (handler) handler();
    }
}

}  // namespace

std::shared_ptr<HotkeyController> HotkeyController::create()
{
    return std::shared_ptr<HotkeyController>(new HotkeyController);
}

void HotkeyController::register_(const Hotkey& shortcut)
{
    if (registeredShortcuts().contains(shortcut)) return;
    CarbonHotkeyController::register_(
        shortcut, [self = shared_from_this()](const Hotkey& pressed) { self->handleKeyDown(pressed); },
        [self = shared_from_this()](const Hotkey& released) { self->handleKeyUp(released); });
    registeredShortcuts().insert(shortcut);
}

void HotkeyController::unregister(const Hotkey& shortcut)
{
    const auto self = shared_from_this();  // the table may be its last owner
    const Hotkey ended = shortcut;         // may be an element of the set
    CarbonHotkeyController::unregister(ended);
    registeredShortcuts().erase(ended);
}

void HotkeyController::unregisterAll()
{
    const auto self = shared_from_this();  // the table may have been its last owner
    CarbonHotkeyController::unregisterAll();
    registeredShortcuts().clear();
}

void HotkeyController::removeAllHandlers()
{
    const auto self = shared_from_this();
    CarbonHotkeyController::unregisterAll();
    keyDownHandlers().clear();
    keyUpHandlers().clear();
}

void HotkeyController::handleKeyDown(const Hotkey& shortcut)
{
    if (const auto told = delegate()) told->hotkeyPressed(shortcut);
    callAll(keyDownHandlers(), shortcut);
}

void HotkeyController::handleKeyUp(const Hotkey& shortcut)
{
    callAll(keyUpHandlers(), shortcut);
}

}  // namespace Lorrel
