#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Lorrel/menubar/MenuBarDelegate.h"
#include "Lorrel/menubar/MenuBarItem.h"

namespace Lorrel {

// The items of an application in the menu bar; the first is the main item.
// Main thread.
class IMenuBarItemController {
public:
    virtual ~IMenuBarItemController() = default;

    // Held strongly.
    virtual std::shared_ptr<MenuBarDelegate> delegate() const = 0;
    virtual void setDelegate(std::shared_ptr<MenuBarDelegate> delegate) = 0;
    // In the order in which they were added.
    virtual const std::vector<std::shared_ptr<MenuBarItem>>& items() const = 0;
    // The main item. Like isDark(), only while there is one.
    virtual std::shared_ptr<MenuBarItem> item() const = 0;
    virtual bool isDark() const = 0;
    // Whether the desktop's menu bar shows at present.
    virtual bool isMenuBarVisible() const = 0;
    virtual std::size_t count() const = 0;
    virtual void add(const std::shared_ptr<MenuBarItem>& item) = 0;
    // All but the main item.
    virtual void removeAdditionalItems() = 0;
    virtual void remove(const std::shared_ptr<MenuBarItem>& item) = 0;
    // Not added.
    virtual std::shared_ptr<MenuBarItem> makeItem(const ImageRef& image) const = 0;
    virtual std::shared_ptr<MenuBarItem> makeItem(const ViewRef& view) const = 0;
    // The index is below count().
    virtual std::shared_ptr<MenuBarItem> item(std::size_t index) const = 0;
    // Takes the main item away and no longer follows its look.
    virtual void tearDown() = 0;
};

}  // namespace Lorrel
