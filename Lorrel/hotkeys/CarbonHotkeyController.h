#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "Lorrel/hotkeys/Hotkey.h"
#include "platform/input/HotKeyService.h"

namespace Lorrel {

// The bridge to the system's hot-key service: one table for the whole process,
// of which every entry is one accepted registration. Thread: main.
class CarbonHotkeyController {
public:
    CarbonHotkeyController() = delete;

    using Handler = std::function<void(const Hotkey&)>;

    // One accepted registration.
    class HotKey {
    public:
        HotKey(Hotkey shortcut, std::int64_t carbonHotKeyId, Platform::HotKeyHandle carbonHotKey, Handler onKeyDown,
               Handler onKeyUp);

        const Hotkey& shortcut() const { return shortcut_; }
        std::int64_t carbonHotKeyId() const { return carbonHotKeyId_; }
        Platform::HotKeyHandle carbonHotKey() const { return carbonHotKey_; }
        const Handler& onKeyDown() const { return onKeyDown_; }
        const Handler& onKeyUp() const { return onKeyUp_; }

    private:
        Hotkey shortcut_;
        std::int64_t carbonHotKeyId_;
        Platform::HotKeyHandle carbonHotKey_;
        Handler onKeyDown_;
        Handler onKeyUp_;
    };
    using HotKeys = std::map<std::int64_t, std::shared_ptr<const HotKey>>;

    // What the process has registered; tests replace it for a scope through Platform::Shared.
    struct Table {
        HotKeys hotKeys;
        std::int64_t hotKeyId = 0;
        std::optional<Platform::HotKeyEventHandlerHandle> eventHandler;
    };

    // 'LRHK': events of another signature are not ours.
    static constexpr std::uint32_t signature = 0x4C52484B;

    // By registration number.
    static const HotKeys& hotKeys();
    // The last number that was given out, also to a request that was refused.
    static std::int64_t hotKeyId();
    // Installed with the first accepted registration, for good.
    static std::optional<Platform::HotKeyEventHandlerHandle> eventHandler();

    // Nothing is kept or told when the system refuses, or when key code or
    // number do not fit the system's 32 bits. A handler may be empty.
    static void register_(const Hotkey& shortcut, Handler onKeyDown, Handler onKeyUp);
    // Every registration of an equal value.
    static void unregister(const Hotkey& shortcut);
    static void unregisterAll();

    // What the system calls with each event, or without one.
    static Platform::HotKeyStatus handleEvent(const Platform::HotKeyEvent* event);
};

}  // namespace Lorrel
