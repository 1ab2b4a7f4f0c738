#include "platform/input/InProcessHotKeyService.h"

#include "platform/input/KeyPositions.h"

namespace Platform {

HotKeyRegistration InProcessHotKeyService::registerKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyId id)
{
    const KeyCombination combination{keyCode, modifiers & HotKeyMask::all};
    if (!keyPositionName(keyCode)) return {HotKeyStatuses::hotKeyInvalid, std::nullopt};
    if (foreign_.contains(combination)) return {HotKeyStatuses::hotKeyExists, std::nullopt};
    return {HotKeyStatuses::noError, table_.add(combination, id)};
}

HotKeyStatus InProcessHotKeyService::unregisterKey(HotKeyHandle handle)
{
    return table_.remove(handle) ? HotKeyStatuses::noError : HotKeyStatuses::hotKeyInvalid;
}

std::optional<HotKeyEventHandlerHandle> InProcessHotKeyService::installEventHandler(HotKeyEventHandler handler)
{
    return table_.install(std::move(handler));
}

}  // namespace Platform
