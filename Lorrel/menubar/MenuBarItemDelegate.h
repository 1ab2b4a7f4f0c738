#pragma once

#include <memory>
#include <optional>

namespace Lorrel {

class MenuBarItem;

// Hears when an item is shown or hidden. Main thread.
class MenuBarItemDelegate {
public:
    virtual ~MenuBarItemDelegate() = default;
    // Without a value the change did not carry one.
    virtual void visibilityChanged(const std::shared_ptr<MenuBarItem>& item, std::optional<bool> isVisible) = 0;
};

}  // namespace Lorrel
