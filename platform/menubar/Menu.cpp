#include "platform/menubar/Menu.h"

#include <algorithm>

#include "platform/menubar/StatusBar.h"

namespace Platform {

MenuRef Menu::create()
{
    return MenuRef(new Menu);
}

Menu::~Menu()
{
    for (const MenuItemRef& item : items_) item->menu_.reset();
}

bool Menu::isMenuBarVisible()
{
    return StatusBar::system().isShown();
}

void Menu::insertItem(const MenuItemRef& item, std::size_t index)
{
    if (!item || (item->submenu() && liesIn(*item->submenu()))) return;
    const MenuItemRef added = item;  // the argument may be an element of the list that it leaves
    if (const MenuRef former = added->menu()) former->removeItem(added);
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(std::min(index, items_.size())), added);
    added->menu_ = weak_from_this();
    tell(nullptr);
}

void Menu::removeItem(const MenuItemRef& item)
{
    const MenuItemRef removed = item;  // the argument may be an element of the list
    if (std::erase(items_, removed) == 0) return;
    removed->menu_.reset();
    if (highlighted_.lock() == removed) highlight(nullptr);
    tell(nullptr);
}

void Menu::removeAllItems()
{
    const auto removed = std::exchange(items_, {});
    for (const MenuItemRef& item : removed) item->menu_.reset();
    highlight(nullptr);
    if (!removed.empty()) tell(nullptr);
}

MenuItemRef Menu::itemWithTitle(std::string_view title) const
{
    const auto found = std::ranges::find_if(items_, [&](const auto& item) { return item->title() == title; });
    return found == items_.end() ? nullptr : *found;
}

MenuItemRef Menu::itemWithTag(long tag) const
{
    const auto found = std::ranges::find_if(items_, [&](const auto& item) { return item->tag() == tag; });
    return found == items_.end() ? nullptr : *found;
}

Subscription Menu::observe(std::function<void(MenuItem*)> observer)
{
    const int number = nextObserver_++;
    observers_.emplace_back(number, std::move(observer));
    return Subscription([weak = weak_from_this(), number] {
        if (const MenuRef self = weak.lock()) {
            std::erase_if(self->observers_, [number](const auto& each) { return each.first == number; });
        }
    });
}

bool Menu::liesIn(const Menu& menu) const
{
    if (this == &menu) return true;
    const MenuItemRef above = superitem_.lock();
    const MenuRef parent = above ? above->menu() : nullptr;
    return parent && parent->liesIn(menu);
}

// Those who show a menu show what lies below it, too.
void Menu::tell(MenuItem* item)
{
    const auto observers = observers_;
    for (const auto& [number, observer] : observers) observer(item);
    const MenuItemRef above = superitem_.lock();
    if (const MenuRef parent = above ? above->menu() : nullptr) parent->tell(item);
}

void Menu::highlight(const MenuItemRef& item)
{
    if (const MenuItemRef former = highlighted_.lock(); former && former != item) former->setHighlighted(false);
    highlighted_ = item;
    if (item) item->setHighlighted(true);
}

void Menu::needsUpdate()
{
    if (const auto told = delegate()) told->menuNeedsUpdate(*this);
}

void Menu::opened()
{
    if (const auto told = delegate()) told->menuWillOpen(*this);
}

void Menu::closed()
{
    highlight(nullptr);
    if (const auto told = delegate()) told->menuDidClose(*this);
}

}  // namespace Platform
