#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/menubar/MenuItem.h"
#include "platform/menubar/internal/BusObject.h"
#include "platform/ui/Bitmap.h"

namespace Platform {

// What the menu's readers are told of an item: only what is not the default.
std::vector<BusObject::Property> propertiesOf(const MenuItem& item);
// The names of all of those that may be there.
const std::vector<std::string>& menuPropertyNames();

// The item's view, or its image in at most two pixels a point; absent without
// either, or where there is nothing to draw.
std::optional<Bitmap> pictureOf(const MenuItem& item);

// The key of a shortcut as the menu's readers call it: "F1", "space", "a";
// empty for none.
std::string shortcutKeyName(const std::string& keyEquivalent);
// The modifiers in front of it where it is written out: "Control+Alt+".
std::string shortcutPrefix(ModifierFlags modifiers);

}  // namespace Platform
