#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

#include "platform/input/HotKeyTable.h"

namespace Platform {

class XConnection;

// A key of the display with the modifiers of the protocol.
struct XKey {
    xcb_keycode_t code = 0;
    std::uint16_t modifiers = 0;
    friend auto operator<=>(const XKey&, const XKey&) = default;
};

// Where the display's keyboard has its positions and modifiers: the state at
// the time it was read. Two that are equal make the same grabs. A value.
class XKeyMap {
public:
    // Absent when the server is gone or does not answer.
    static std::optional<XKeyMap> read(XConnection& connection);

    // Absent when the keyboard has no such position, or no such modifier, or
    // has it on a lock's place, where it cannot be told from the lock.
    std::optional<XKey> key(const KeyCombination& combination) const;
    // The same key under every state of the locking modifiers.
    std::vector<XKey> withLocks(const XKey& key) const;
    // What is left of an event's state without locks and pointer buttons.
    std::uint16_t withoutLocks(std::uint16_t state) const;

    friend bool operator==(const XKeyMap&, const XKeyMap&) = default;

private:
    unsigned locks() const { return XCB_MOD_MASK_LOCK | numLock_ | scrollLock_; }

    std::map<std::string, xcb_keycode_t, std::less<>> positions_;
    std::uint16_t option_ = 0;
    std::uint16_t command_ = 0;
    std::uint16_t numLock_ = 0;
    std::uint16_t scrollLock_ = 0;
};

}  // namespace Platform
