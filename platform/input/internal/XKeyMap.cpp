#include "platform/input/internal/XKeyMap.h"

#include <algorithm>
#include <cstring>
#include <span>

#include <xkbcommon/xkbcommon-keysyms.h>

#include "platform/input/KeyPositions.h"
#include "platform/input/ModifierFlags.h"
#include "platform/input/internal/XConnection.h"
#include "platform/input/internal/Xkb.h"

namespace Platform {

namespace {

using Positions = std::map<std::string, xcb_keycode_t, std::less<>>;

Positions positionsOf(const xcb_xkb_get_names_reply_t& reply)
{
    xcb_xkb_get_names_value_list_t lists{};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(&reply), reply.nTypes, reply.indicators,
                                        reply.virtualMods, reply.groupNames, reply.nKeys, reply.nKeyAliases,
                                        reply.nRadioGroups, reply.which, &lists);
    Positions positions;
    for (unsigned index = 0; lists.keyNames && index < reply.nKeys; ++index) {
        const char* name = lists.keyNames[index].name;
        const std::string text(name, ::strnlen(name, 4));
        if (!text.empty()) positions.emplace(text, static_cast<xcb_keycode_t>(reply.firstKey + index));
    }
    return positions;
}

// Which modifier (a bit) has a key that means one of the two symbols.
class ModifierKeys {
public:
    ModifierKeys(const xcb_get_modifier_mapping_reply_t& modifiers, const xcb_get_keyboard_mapping_reply_t& symbols,
                 xcb_keycode_t firstCode)
        : codes_(xcb_get_modifier_mapping_keycodes(&modifiers),
                 static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(&modifiers))),
          symbols_(xcb_get_keyboard_mapping_keysyms(&symbols),
                   static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(&symbols))),
          codesPerModifier_(modifiers.keycodes_per_modifier),
          symbolsPerCode_(symbols.keysyms_per_keycode),
          firstCode_(firstCode)
    {
    }

    std::uint16_t bitOf(xcb_keysym_t one, xcb_keysym_t other) const
    {
        // Shift, Lock and Control (the first three) mean what they are called.
        for (std::size_t modifier = 3; modifier < 8; ++modifier) {
            for (const auto code : codes_.subspan(modifier * codesPerModifier_, codesPerModifier_)) {
                if (means(code, one) || means(code, other)) return static_cast<std::uint16_t>(1U << modifier);
            }
        }
        return 0;
    }

private:
    bool means(xcb_keycode_t code, xcb_keysym_t symbol) const
    {
        const std::size_t start = (static_cast<std::size_t>(code) - firstCode_) * symbolsPerCode_;
        if (code < firstCode_ || start + symbolsPerCode_ > symbols_.size()) return false;
        const auto meanings = symbols_.subspan(start, symbolsPerCode_);
        return std::ranges::find(meanings, symbol) != meanings.end();
    }

    std::span<const xcb_keycode_t> codes_;
    std::span<const xcb_keysym_t> symbols_;
    std::size_t codesPerModifier_;
    std::size_t symbolsPerCode_;
    xcb_keycode_t firstCode_;
};

}  // namespace

std::optional<XKeyMap> XKeyMap::read(XConnection& display)
{
    if (!display.isAnswered()) return std::nullopt;
    xcb_connection_t* connection = display.get();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    if (!setup) return std::nullopt;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    // All three are asked before the first answer is awaited.
    const auto namesCookie = xcb_xkb_get_names(connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES);
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const auto symbolsCookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    if (!display.isAnswered()) {
        for (const unsigned sequence : {namesCookie.sequence, modifiersCookie.sequence, symbolsCookie.sequence}) {
            xcb_discard_reply(connection, sequence);
        }
        return std::nullopt;
    }
    const XcbReply<xcb_xkb_get_names_reply_t> names(xcb_xkb_get_names_reply(connection, namesCookie, nullptr));
    const XcbReply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr));
    const XcbReply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolsCookie, nullptr));
    if (!names || !modifiers || !symbols) return std::nullopt;

    const ModifierKeys keys(*modifiers, *symbols, setup->min_keycode);
    XKeyMap map;
    map.positions_ = positionsOf(*names);
    map.option_ = keys.bitOf(XKB_KEY_Alt_L, XKB_KEY_Alt_R);
    map.command_ = keys.bitOf(XKB_KEY_Super_L, XKB_KEY_Super_R);
    map.numLock_ = keys.bitOf(XKB_KEY_Num_Lock, XKB_KEY_Num_Lock);
    map.scrollLock_ = keys.bitOf(XKB_KEY_Scroll_Lock, XKB_KEY_Scroll_Lock);
    return map;
}

std::optional<XKey> XKeyMap::key(const KeyCombination& combination) const
{
    const struct {
        std::uint32_t mask;
        std::uint16_t bit;
    } modifiers[] = {{HotKeyMask::shift, XCB_MOD_MASK_SHIFT},
                     {HotKeyMask::control, XCB_MOD_MASK_CONTROL},
                     {HotKeyMask::option, option_},
                     {HotKeyMask::command, command_}};

    const auto name = keyPositionName(combination.keyCode);
    const auto position = name ? positions_.find(*name) : positions_.end();
    if (position == positions_.end()) return std::nullopt;
    XKey key{position->second, 0};
    for (const auto& modifier : modifiers) {
        if (!(combination.modifiers & modifier.mask)) continue;
        if (modifier.bit == 0 || modifier.bit & locks()) return std::nullopt;
        key.modifiers |= modifier.bit;
    }
    return key;
}

std::vector<XKey> XKeyMap::withLocks(const XKey& key) const
{
    std::vector<XKey> keys{key};
    for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, numLock_, scrollLock_}) {
        if (lock == 0) continue;
        const std::vector<XKey> others = keys;
        for (XKey other : others) {
            other.modifiers |= lock;
            keys.push_back(other);
        }
    }
    return keys;
}

std::uint16_t XKeyMap::withoutLocks(std::uint16_t state) const
{
    constexpr unsigned allModifiers = 0xFF;
    return static_cast<std::uint16_t>(state & allModifiers & ~locks());
}

}  // namespace Platform
