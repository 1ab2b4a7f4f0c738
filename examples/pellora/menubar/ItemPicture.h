#pragma once

#include <string>
#include <vector>

#include "platform/menubar/Menu.h"
#include "platform/menubar/StatusItem.h"
#include "platform/runtime/Image.h"

namespace Pellora {

// A status item in its bar with its menu open below it, twice as fine as a
// point, in one look. Drawn by us: a desktop's own menus look its own way. Thread: main.
Platform::ImageRef itemPicture(Platform::StatusItem& item, const std::string& look);

// Several pictures side by side.
Platform::ImageRef sideBySide(const std::vector<Platform::ImageRef>& pictures);

}  // namespace Pellora
