#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/input/HotKeyService.h"

namespace Platform {

// A key with the four modifiers that count.
struct KeyCombination {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    friend auto operator<=>(const KeyCombination&, const KeyCombination&) = default;
};

// The books of a hot-key service: who registered what, which keys are down,
// and who is told. Handlers may register and unregister while they are called.
// Thread: that of the service.
class HotKeyTable {
public:
    HotKeyHandle add(const KeyCombination& combination, HotKeyId id);
    // False when there is no such registration.
    bool remove(HotKeyHandle handle);
    bool holds(const KeyCombination& combination) const;
    bool isEmpty() const { return entries_.empty(); }
    // Each combination once, in the order of registration.
    std::vector<KeyCombination> combinations() const;

    HotKeyEventHandlerHandle install(HotKeyEventHandler handler);

    // Tells the registrations of the combination, in their order, that the key
    // went down; not again until the key has come up.
    void press(const KeyCombination& combination);
    // The key came up, whatever the modifiers are by now: tells those that heard of the press.
    void release(std::uint32_t keyCode);
    // Nobody hears of the keys that are down now.
    void forgetPresses() { down_.clear(); }

private:
    struct Entry {
        KeyCombination combination;
        HotKeyId id;
    };

    void tell(const std::vector<HotKeyHandle>& handles, std::uint32_t kind);
    void tell(const HotKeyEvent& event);

    std::map<HotKeyHandle, Entry> entries_;
    std::map<std::uint32_t, std::vector<HotKeyHandle>> down_;
    std::vector<HotKeyEventHandler> handlers_;
    HotKeyHandle lastHandle_ = 0;
};

}  // namespace Platform
