#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "platform/input/ModifierFlags.h"

namespace Lorrel {

using Platform::ModifierFlags;

// The mask that hot keys use, and back; only shift, control, option and
// command are in either answer.
std::int64_t carbonFlags(ModifierFlags flags);
ModifierFlags modifierFlags(std::int64_t carbonFlags);

// "⌃⌥⇧⌘" of those that are present, in this order; empty when none is.
std::string description(ModifierFlags flags);

}  // namespace Lorrel

namespace Platform {

// The description.
std::ostream& operator<<(std::ostream& stream, ModifierFlags flags);

}  // namespace Platform
