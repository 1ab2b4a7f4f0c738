#pragma once

#include <any>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Lorrel/menubar/MenuBarItemDelegate.h"
#include "platform/menubar/StatusItem.h"

namespace Lorrel {

using Platform::ImageRef;
using Platform::ViewRef;

// One place in the status bar with an image, a title or views of the
// application's own. Let go of it and the place is free. Main thread.
class MenuBarItem : public std::enable_shared_from_this<MenuBarItem> {
public:
    using Views = std::vector<ViewRef>;

    static std::shared_ptr<MenuBarItem> create();
    static std::shared_ptr<MenuBarItem> create(const ViewRef& view);
    static std::shared_ptr<MenuBarItem> create(const Views& views);
    static std::shared_ptr<MenuBarItem> create(const ImageRef& image);
    MenuBarItem(const MenuBarItem&) = delete;
    MenuBarItem& operator=(const MenuBarItem&) = delete;

    // Of variable length; always the same one.
    const Platform::StatusItemRef& item() const { return item_; }
    // Absent until a size is set, and after clear().
    const Platform::ConstraintRef& widthConstraint() const { return widthConstraint_; }
    const Platform::ConstraintRef& heightConstraint() const { return heightConstraint_; }
    // For the application's use.
    const std::any& representedObject() const { return representedObject_; }
    void setRepresentedObject(std::any object) { representedObject_ = std::move(object); }
    // Held weakly.
    std::shared_ptr<MenuBarItemDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<MenuBarItemDelegate>& delegate) { delegate_ = delegate; }

    // What the button holds. Absent is written as none.
    std::optional<Views> views() const;
    void setViews(const std::optional<Views>& views);
    // Writing an image removes the views.
    ImageRef image() const { return button().image(); }
    void setImage(const ImageRef& image);
    std::optional<std::string> title() const { return button().title(); }
    void setTitle(const std::optional<std::string>& title) { button().setTitle(title.value_or("")); }
    std::optional<Platform::Font> font() const { return button().font(); }
    // Absent means the desktop's own.
    void setFont(const std::optional<Platform::Font>& font);

    std::shared_ptr<Platform::Responder> target() const { return button().target(); }
    void setTarget(const std::shared_ptr<Platform::Responder>& target) { button().setTarget(target); }
    void setTarget(const std::shared_ptr<Platform::Responder>& target, const Platform::Action& action, long tag);
    void removeTarget() { setTarget(nullptr, {}, 0); }
    const Platform::Action& action() const { return button().action(); }
    void setAction(Platform::Action action) { button().setAction(std::move(action)); }
    const Platform::MenuRef& menu() const { return item_->menu(); }
    void setMenu(const Platform::MenuRef& menu) { item_->setMenu(menu); }

    // The button's look has a name that contains "dark" in any letter case.
    bool isDark() const;

    // The button's size in points. The second time changes the same two constraints.
    void setSize(double width, double height);
    // Fills the whole button with the view.
    void addView(const ViewRef& view);
    void addSubview(const ViewRef& view);
    // No image, no views, no constraints; the next size makes new ones.
    void clear();

private:
    MenuBarItem();
    static std::shared_ptr<MenuBarItem> createObserved();
    Platform::StatusBarButton& button() const { return *item_->button(); }
    void clearSubviews();
    void tellVisibility(const Platform::KeyValueChange& change);

    Platform::StatusItemRef item_;
    Platform::ConstraintRef widthConstraint_;
    Platform::ConstraintRef heightConstraint_;
    Platform::Subscription observer_;
    std::any representedObject_;
    std::weak_ptr<MenuBarItemDelegate> delegate_;
};

}  // namespace Lorrel
