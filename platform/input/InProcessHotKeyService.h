#pragma once

#include <set>

#include "platform/input/HotKeyTable.h"
#include "platform/input/ModifierFlags.h"

namespace Platform {

// Hot keys of a program without a display: it keeps all promises of the
// service, and the keys are pressed by calls. Thread: main.
class InProcessHotKeyService : public HotKeyService {
public:
    // Refused as on a real keyboard: a key code that names no position.
    HotKeyRegistration registerKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyId id) override;
    HotKeyStatus unregisterKey(HotKeyHandle handle) override;
    std::optional<HotKeyEventHandlerHandle> installEventHandler(HotKeyEventHandler handler) override;

    // Handlers have run when these return. Locks make no difference here either.
    void press(std::uint32_t keyCode, std::uint32_t modifiers) { table_.press({keyCode, modifiers & HotKeyMask::all}); }
    void release(std::uint32_t keyCode) { table_.release(keyCode); }

    // Combinations that another program holds.
    void occupy(std::uint32_t keyCode, std::uint32_t modifiers) { foreign_.insert({keyCode, modifiers}); }

private:
    HotKeyTable table_;
    std::set<KeyCombination> foreign_;
};

}  // namespace Platform
