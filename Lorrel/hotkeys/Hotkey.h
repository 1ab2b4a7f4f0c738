#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "Lorrel/hotkeys/Key.h"
#include "Lorrel/hotkeys/ModifierFlags.h"

namespace Lorrel {

// A keyboard shortcut: a key, its modifiers, and a label of the caller's
// choice. A value; all of it, the two tables of texts too, takes part in
// equality and hash, so it serves as element of a set and as key of a map.
// Thread: any, but the texts ask for the keyboard's layout on the main thread.
class Hotkey {
public:
    using KeyTexts = std::map<Key, std::string>;

    // Of the mask only the bits of the four modifiers are kept.
    Hotkey(std::int64_t carbonKeyCode, std::int64_t carbonModifiers);
    Hotkey(std::optional<std::string> id, Key key, ModifierFlags modifiers);

    const std::optional<std::string>& id() const { return id_; }
    void setId(std::optional<std::string> id) { id_ = std::move(id); }
    std::int64_t carbonKeyCode() const { return carbonKeyCode_; }
    std::int64_t carbonModifiers() const { return carbonModifiers_; }
    // Always there.
    std::optional<Key> key() const { return Key(carbonKeyCode_); }
    ModifierFlags modifiers() const { return modifierFlags(carbonModifiers_); }

    // Symbols for keys that the keyboard's layout has no useful character for ("⎋", "F1").
    const KeyTexts& keyToCharacterMapping() const { return keyToCharacterMapping_; }
    KeyTexts& keyToCharacterMapping() { return keyToCharacterMapping_; }
    // What a menu takes for keys whose symbol is longer than one character.
    const KeyTexts& keyToKeyEquivalentString() const { return keyToKeyEquivalentString_; }
    KeyTexts& keyToKeyEquivalentString() { return keyToKeyEquivalentString_; }

    // The key's symbol, else what it writes on the current layout without
    // modifiers; absent where it writes nothing known.
    std::optional<std::string> character(std::int64_t keyCode) const;
    // "⇧⌘A"; "�" stands for an unknown character.
    std::string description() const;
    // For a menu item, whose modifiers are modifiers(); may be empty.
    std::string keyEquivalent() const;

    friend bool operator==(const Hotkey&, const Hotkey&) = default;

private:
    std::optional<std::string> id_;
    std::int64_t carbonKeyCode_;
    std::int64_t carbonModifiers_;
    KeyTexts keyToCharacterMapping_;
    KeyTexts keyToKeyEquivalentString_;
};

}  // namespace Lorrel

template <>
struct std::hash<Lorrel::Hotkey> {
    std::size_t operator()(const Lorrel::Hotkey& hotkey) const noexcept;
};
