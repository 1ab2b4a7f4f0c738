#pragma once

#include <string>

#include <systemd/sd-bus.h>

#include "platform/menubar/StatusItem.h"
#include "platform/ui/Bitmap.h"

namespace Platform {

// What a tray host is told of an item. A value.
struct ItemSnapshot {
    Bitmap icon;
    std::string title;
    std::string toolTip;
    std::string accessibilityText;
    bool isVisible = true;
    bool isMenu = false;

    friend bool operator==(const ItemSnapshot&, const ItemSnapshot&) = default;
};

// Draws the button.
ItemSnapshot snapshotOf(const StatusItem& item);

// The icon as a(iiay): rows of alpha, red, green, blue, colours not
// premultiplied. Empty where there is nothing to show.
void appendPixmap(sd_bus_message* message, const Bitmap& icon);

}  // namespace Platform
