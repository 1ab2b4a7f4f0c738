#pragma once

namespace Lorrel {

// Listens to a controller of menu bar items. Main thread.
class MenuBarDelegate {
public:
    virtual ~MenuBarDelegate() = default;
    // An item has been added or removed.
    virtual void itemsChanged() = 0;
    // True when the menu bar now looks dark.
    virtual void appearanceChanged(bool isDark) = 0;
};

}  // namespace Lorrel
