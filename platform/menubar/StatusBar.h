#pragma once

#include <memory>
#include <vector>

#include "platform/menubar/StatusItem.h"

namespace Platform {

// The desktop's bar of status items. Items show wherever a tray host answers
// on the session bus, now or later. Thread: main.
class StatusBar {
public:
    // Height of the bar, and of the items' buttons, in points.
    static constexpr double thickness = 22;

    // The bar of this process's desktop.
    static StatusBar& system();

    // A new item at the end. It shows from the next turn of the main loop.
    StatusItemRef statusItem(double length);
    // Takes the item off the bar for good; it goes on living. Not twice.
    void removeStatusItem(const StatusItemRef& item);
    // Those on the bar, in the order in which they came.
    std::vector<StatusItemRef> items() const;
    // Whether the desktop has accepted one of them.
    bool isShown() const;

private:
    std::vector<std::weak_ptr<StatusItem>> items_;
};

}  // namespace Platform
