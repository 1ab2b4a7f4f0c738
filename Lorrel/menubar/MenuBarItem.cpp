#include "Lorrel/menubar/MenuBarItem.h"

#include "Lorrel/menubar/internal/PinEdges.h"
#include "platform/menubar/StatusBar.h"

namespace Lorrel {

namespace {

void setConstraint(Platform::ConstraintRef& stored, const Platform::LayoutAnchor& anchor, double constant)
{
    if (stored) {
        stored->setConstant(constant);
        return;
    }
    stored = anchor.constraintEqualToConstant(constant);
    stored->setActive(true);
}

}  // namespace

MenuBarItem::MenuBarItem() : item_(Platform::StatusBar::system().statusItem(Platform::StatusItem::variableLength)) {}

std::shared_ptr<MenuBarItem> MenuBarItem::createObserved()
{
    using namespace Platform::KeyValueOptions;
    const std::shared_ptr<MenuBarItem> self(new MenuBarItem);
    self->observer_ =
        self->item_->observe("isVisible", newValue | oldValue, [weak = std::weak_ptr(self)](auto, const auto& change) {
            if (const auto present = weak.lock()) present->tellVisibility(change);
        });
    return self;
}

std::shared_ptr<MenuBarItem> MenuBarItem::create()
{
    return createObserved();
}

std::shared_ptr<MenuBarItem> MenuBarItem::create(const ViewRef& view)
{
    return create(Views{view});
}

std::shared_ptr<MenuBarItem> MenuBarItem::create(const Views& views)
{
    auto self = createObserved();
    for (const ViewRef& view : views) self->addSubview(view);
    return self;
}

std::shared_ptr<MenuBarItem> MenuBarItem::create(const ImageRef& image)
{
    auto self = createObserved();
    self->setImage(image);
    return self;
}

void MenuBarItem::tellVisibility(const Platform::KeyValueChange& change)
{
    const auto told = delegate();
    if (!told) return;
    const bool* isVisible = change.newValue ? std::get_if<bool>(&*change.newValue) : nullptr;
    told->visibilityChanged(shared_from_this(), isVisible ? std::optional(*isVisible) : std::nullopt);
}

std::optional<MenuBarItem::Views> MenuBarItem::views() const
{
    return button().subviews();
}

void MenuBarItem::setViews(const std::optional<Views>& views)
{
    const Views wanted = views.value_or(Views());  // may be the button's own list
    setImage(nullptr);
    clearSubviews();
    for (const ViewRef& view : wanted) addSubview(view);
}

void MenuBarItem::setImage(const ImageRef& image)
{
    clearSubviews();
    button().setImagePosition(Platform::ImagePosition::imageLeft);
    button().setImage(image);
}

void MenuBarItem::setFont(const std::optional<Platform::Font>& font)
{
    button().setFont(font.value_or(Platform::Font::system(0)));
}

void MenuBarItem::setTarget(const std::shared_ptr<Platform::Responder>& target, const Platform::Action& action,
                            long tag)
{
    button().setTarget(target);
    button().setAction(action);
    button().setTag(tag);
}

bool MenuBarItem::isDark() const
{
    return button().effectiveAppearance().soundsDark();
}

void MenuBarItem::setSize(double width, double height)
{
    setConstraint(widthConstraint_, button().widthAnchor(), width);
    setConstraint(heightConstraint_, button().heightAnchor(), height);
}

void MenuBarItem::addView(const ViewRef& view)
{
    addSubview(view);
    if (view) pinEdges(view, item_->button());
}

void MenuBarItem::addSubview(const ViewRef& view)
{
    button().addSubview(view);
}

void MenuBarItem::clear()
{
    button().setImage(nullptr);
    button().removeConstraints(button().constraints());
    widthConstraint_ = nullptr;
    heightConstraint_ = nullptr;
    clearSubviews();
}

void MenuBarItem::clearSubviews()
{
    for (const ViewRef& view : Views(button().subviews())) view->removeFromSuperview();
    button().setSubviews({});
}

}  // namespace Lorrel
