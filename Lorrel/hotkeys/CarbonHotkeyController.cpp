#include "Lorrel/hotkeys/CarbonHotkeyController.h"

#include <utility>

#include "platform/runtime/Shared.h"

namespace Lorrel {

using Platform::HotKeyService;
namespace Statuses = Platform::HotKeyStatuses;

namespace {

CarbonHotkeyController::Table& table()
{
    return Platform::Shared<CarbonHotkeyController::Table>::get(
        [] { return std::make_unique<CarbonHotkeyController::Table>(); });
}

bool fitsSystem(std::int64_t keyCode, std::int64_t number)
{
    return std::in_range<std::uint32_t>(keyCode) && std::in_range<std::uint32_t>(number);
}

void installHandlerOnce()
{
    if (table().eventHandler) return;
    table().eventHandler = HotKeyService::shared().installEventHandler(CarbonHotkeyController::handleEvent);
}

void end(const CarbonHotkeyController::HotKey& hotKey)
{
    HotKeyService::shared().unregisterKey(hotKey.carbonHotKey());
    table().hotKeys.erase(hotKey.carbonHotKeyId());
}

}  // namespace

CarbonHotkeyController::HotKey::HotKey(Hotkey shortcut, std::int64_t carbonHotKeyId,
                                       Platform::HotKeyHandle carbonHotKey, Handler onKeyDown, Handler onKeyUp)
    : shortcut_(std::move(shortcut)),
      carbonHotKeyId_(carbonHotKeyId),
      carbonHotKey_(carbonHotKey),
      onKeyDown_(std::move(onKeyDown)),
      onKeyUp_(std::move(onKeyUp))
{
}

const CarbonHotkeyController::HotKeys& CarbonHotkeyController::hotKeys()
{
    return table().hotKeys;
}

std::int64_t CarbonHotkeyController::hotKeyId()
{
    return table().hotKeyId;
}

std::optional<Platform::HotKeyEventHandlerHandle> CarbonHotkeyController::eventHandler()
{
    return table().eventHandler;
}

void CarbonHotkeyController::register_(const Hotkey& shortcut, Handler onKeyDown, Handler onKeyUp)
{
    const std::int64_t number = ++table().hotKeyId;
    if (!fitsSystem(shortcut.carbonKeyCode(), number)) return;
    const auto registration = HotKeyService::shared().registerKey(
        static_cast<std::uint32_t>(shortcut.carbonKeyCode()), static_cast<std::uint32_t>(shortcut.carbonModifiers()),
        {signature, static_cast<std::uint32_t>(number)});
    if (registration.status != Statuses::noError || !registration.handle) return;
    table().hotKeys[number] = std::make_shared<const HotKey>(shortcut, number, *registration.handle,
                                                             std::move(onKeyDown), std::move(onKeyUp));
    installHandlerOnce();
}

void CarbonHotkeyController::unregister(const Hotkey& shortcut)
{
    const HotKeys all = table().hotKeys;
    for (const auto& [number, hotKey] : all) {
        if (hotKey->shortcut() == shortcut) end(*hotKey);
    }
}

void CarbonHotkeyController::unregisterAll()
{
    const HotKeys all = table().hotKeys;
    for (const auto& [number, hotKey] : all) end(*hotKey);
}

Platform::HotKeyStatus CarbonHotkeyController::handleEvent(const Platform::HotKeyEvent* event)
{
    if (!event) return Statuses::eventNotHandled;
    if (event->idStatus != Statuses::noError) return event->idStatus;
    if (event->id.signature != signature) return Statuses::eventNotHandled;
    const auto found = table().hotKeys.find(event->id.id);
    if (found == table().hotKeys.end()) return Statuses::eventNotHandled;

    const std::shared_ptr<const HotKey> hotKey = found->second;  // the handler may end the registration
    const bool isPress = event->kind == Platform::HotKeyEventKind::pressed;
    if (!isPress && event->kind != Platform::HotKeyEventKind::released) return Statuses::eventNotHandled;
    if (const Handler& handler = isPress ? hotKey->onKeyDown() : hotKey->onKeyUp()) handler(hotKey->shortcut());
    return Statuses::noError;
}

}  // namespace Lorrel
