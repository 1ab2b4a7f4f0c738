#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/menubar/MenuItem.h"
#include "platform/runtime/Subscription.h"

namespace Platform {

// Hears of a menu's life on the screen. Main thread.
class MenuDelegate {
public:
    virtual ~MenuDelegate() = default;
    // Just before it is shown: the last chance to change it.
    virtual void menuNeedsUpdate(Menu&) {}
    virtual void menuWillOpen(Menu&) {}
    virtual void menuDidClose(Menu&) {}
};

// A list of items, with menus below some of them. Thread: main.
class Menu : public std::enable_shared_from_this<Menu> {
public:
    static MenuRef create();
    ~Menu();

    // Whether the desktop's menu bar shows our status items at present.
    static bool isMenuBarVisible();

    const std::vector<MenuItemRef>& items() const { return items_; }
    // An item leaves the menu that it was in; one that this menu hangs below is
    // not taken. An index beyond the end means the end.
    void addItem(const MenuItemRef& item) { insertItem(item, items_.size()); }
    void insertItem(const MenuItemRef& item, std::size_t index);
    void removeItem(const MenuItemRef& item);
    void removeAllItems();
    // Null where there is none of that title, or tag.
    MenuItemRef itemWithTitle(std::string_view title) const;
    MenuItemRef itemWithTag(long tag) const;

    // Held weakly.
    std::shared_ptr<MenuDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<MenuDelegate>& delegate) { delegate_ = delegate; }
    // The one that the pointer is on; null without one.
    MenuItemRef highlightedItem() const { return highlighted_.lock(); }

    // For those who show the menu: called after a change of the item, or of the
    // lists of this menu and those below it (null).
    Subscription observe(std::function<void(MenuItem*)> observer);
    void highlight(const MenuItemRef& item);
    void needsUpdate();
    void opened();
    void closed();

private:
    friend class MenuItem;
    Menu() = default;
    void tell(MenuItem* item);
    // Whether it is the menu itself or hangs below it.
    bool liesIn(const Menu& menu) const;

    std::vector<MenuItemRef> items_;
    std::weak_ptr<MenuItem> superitem_;
    std::weak_ptr<MenuItem> highlighted_;
    std::weak_ptr<MenuDelegate> delegate_;
    std::vector<std::pair<int, std::function<void(MenuItem*)>>> observers_;
    int nextObserver_ = 0;
};

}  // namespace Platform
