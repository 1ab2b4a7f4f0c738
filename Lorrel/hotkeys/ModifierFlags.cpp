#include "Lorrel/hotkeys/ModifierFlags.h"

#include <ostream>
#include <string_view>

namespace Lorrel {

namespace {

struct Modifier {
    ModifierFlags flag;
    std::int64_t mask;
    std::string_view symbol;
};

// In the order in which shortcuts are written.
constexpr Modifier modifiers[] = {
    {ModifierFlags::control, Platform::HotKeyMask::control, "⌃"},
    {ModifierFlags::option, Platform::HotKeyMask::option, "⌥"},
    {ModifierFlags::shift, Platform::HotKeyMask::shift, "⇧"},
    {ModifierFlags::command, Platform::HotKeyMask::command, "⌘"},
};

}  // namespace

std::int64_t carbonFlags(ModifierFlags flags)
{
    std::int64_t mask = 0;
    for (const Modifier& modifier : modifiers) {
        if (flags.contains(modifier.flag)) mask |= modifier.mask;
    }
    return mask;
}

ModifierFlags modifierFlags(std::int64_t carbonFlags)
{
    ModifierFlags flags;
    for (const Modifier& modifier : modifiers) {
        if (carbonFlags & modifier.mask) flags = flags | modifier.flag;
    }
    return flags;
}

std::string description(ModifierFlags flags)
{
    std::string symbols;
    for (const Modifier& modifier : modifiers) {
        if (flags.contains(modifier.flag)) symbols += modifier.symbol;
    }
    return symbols;
}

}  // namespace Lorrel

namespace Platform {

std::ostream& operator<<(std::ostream& stream, ModifierFlags flags)
{
    return stream << Lorrel::description(flags);
}

}  // namespace Platform
