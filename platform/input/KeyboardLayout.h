#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Platform {

// What the keys of the keyboard write. Keys are virtual key codes: positions
// on an ANSI keyboard, whatever is printed on them.
// Thread: main.
class KeyboardLayout {
public:
    // The layout in use on the display, or its first one that can write ASCII
    // letters; US ANSI where there is neither display nor such a layout.
    static KeyboardLayout& shared();
    virtual ~KeyboardLayout() = default;

    // What the key writes without modifiers, a dead key its accent alone;
    // empty for a key that writes nothing, absent for no key of the keyboard.
    virtual std::optional<std::string> character(std::uint16_t keyCode) const = 0;
};

// The US ANSI layout. Thread: any.
class AnsiKeyboardLayout final : public KeyboardLayout {
public:
    std::optional<std::string> character(std::uint16_t keyCode) const override;
};

}  // namespace Platform
