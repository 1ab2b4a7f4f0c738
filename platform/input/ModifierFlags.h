#pragma once

#include <cstdint>

namespace Platform {

// The modifier keys of an event, a menu item or a shortcut: a bit set in the
// application kit's encoding. A value.
class ModifierFlags {
public:
    constexpr ModifierFlags() = default;
    constexpr explicit ModifierFlags(std::uint64_t rawValue) : rawValue_(rawValue) {}

    static const ModifierFlags capsLock, shift, control, option, command, numericPad, help, function;

    constexpr std::uint64_t rawValue() const { return rawValue_; }
    constexpr bool contains(ModifierFlags flags) const { return (rawValue_ & flags.rawValue_) == flags.rawValue_; }
    constexpr bool isEmpty() const { return rawValue_ == 0; }

    friend constexpr ModifierFlags operator|(ModifierFlags a, ModifierFlags b)
    {
        return ModifierFlags(a.rawValue_ | b.rawValue_);
    }
    friend constexpr ModifierFlags operator&(ModifierFlags a, ModifierFlags b)
    {
        return ModifierFlags(a.rawValue_ & b.rawValue_);
    }
    friend constexpr bool operator==(ModifierFlags, ModifierFlags) = default;

private:
    std::uint64_t rawValue_ = 0;
};

inline constexpr ModifierFlags ModifierFlags::capsLock{1U << 16}, ModifierFlags::shift{1U << 17},
    ModifierFlags::control{1U << 18}, ModifierFlags::option{1U << 19}, ModifierFlags::command{1U << 20},
    ModifierFlags::numericPad{1U << 21}, ModifierFlags::help{1U << 22}, ModifierFlags::function{1U << 23};

// The same four modifiers as a hot key's mask has them.
namespace HotKeyMask {
inline constexpr std::uint32_t command = 0x100, shift = 0x200, option = 0x800, control = 0x1000;
inline constexpr std::uint32_t all = command | shift | option | control;
}  // namespace HotKeyMask

}  // namespace Platform
