#pragma once

#include <optional>
#include <string_view>

#include "Lorrel/hotkeys/Hotkey.h"

namespace Pellora {

// A shortcut from words joined by plus signs: any of "control", "option",
// "shift", "command", and at the end a key: a letter, a digit, "space" or "f1"
// to "f20". Absent for other words, and for a key without a modifier, which
// would be taken from every other program (function keys may stand alone).
std::optional<Lorrel::Hotkey> hotkeyFrom(std::string_view text);

}  // namespace Pellora
