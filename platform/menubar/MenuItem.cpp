#include "platform/menubar/MenuItem.h"

#include "platform/menubar/Menu.h"

namespace Platform {

MenuItemRef MenuItem::create(std::string title, Action action, std::string keyEquivalent)
{
    const MenuItemRef item(new MenuItem);
    item->title_ = std::move(title);
    item->action_ = std::move(action);
    item->keyEquivalent_ = std::move(keyEquivalent);
    return item;
}

MenuItemRef MenuItem::separator()
{
    const MenuItemRef item(new MenuItem);
    item->isSeparator_ = true;
    return item;
}

MenuItem::~MenuItem()
{
    if (view_) view_->setDisplayObserver(nullptr);
}

void MenuItem::changed()
{
    if (const MenuRef holder = menu()) holder->tell(this);
}

void MenuItem::setImage(ImageRef image)
{
    image_ = std::move(image);
    changed();
}

// The action may let go of the item, and of itself.
void MenuItem::performAction()
{
    const MenuItemRef self = shared_from_this();
    const Action action = action_;
    const auto receiver = target();
    if (isEnabled_ && !isSeparator_ && receiver) action(*receiver, *this);
}

void MenuItem::setSubmenu(const MenuRef& submenu)
{
    if (const MenuRef holder = menu(); submenu && holder && holder->liesIn(*submenu)) return;
    const MenuRef added = submenu;  // the argument may be the field of the item that it leaves
    const MenuItemRef former = added ? added->superitem_.lock() : nullptr;
    if (former && former.get() != this) former->setSubmenu(nullptr);
    if (submenu_) submenu_->superitem_.reset();
    submenu_ = added;
    if (submenu_) submenu_->superitem_ = weak_from_this();
    if (const MenuRef holder = menu()) holder->tell(nullptr);
}

void MenuItem::setView(const ViewRef& view)
{
    const ViewRef added = view;  // the argument may be the field of the item that it leaves
    const MenuItemRef former = added ? added->enclosingMenuItem() : nullptr;
    if (former && former.get() != this && former->view_ == added) former->setView(nullptr);
    if (view_) {
        view_->setEnclosingMenuItem({});
        view_->setDisplayObserver(nullptr);
    }
    view_ = added;
    if (view_) {
        view_->setEnclosingMenuItem(weak_from_this());
        view_->setDisplayObserver([this] { changed(); });
    }
    changed();
}

void MenuItem::setHighlighted(bool highlighted)
{
    if (std::exchange(isHighlighted_, highlighted) != highlighted && view_) view_->setNeedsDisplay(true);
}

}  // namespace Platform
