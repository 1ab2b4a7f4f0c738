#include "Lorrel/menubar/MenuBarItemController.h"

#include "Lorrel/menubar/internal/ReferenceItem.h"
#include "platform/menubar/StatusBar.h"

namespace Lorrel {

namespace {

constexpr std::string_view appearancePath = "button.effectiveAppearance";

}  // namespace

std::shared_ptr<MenuBarItemController> MenuBarItemController::create(bool withMainItem)
{
    return attached(withMainItem ? MenuBarItem::create() : nullptr);
}

std::shared_ptr<MenuBarItemController> MenuBarItemController::create(const ImageRef& image)
{
    return attached(MenuBarItem::create(image));
}

std::shared_ptr<MenuBarItemController> MenuBarItemController::create(const ViewRef& view)
{
    return attached(MenuBarItem::create(view));
}

std::shared_ptr<MenuBarItemController> MenuBarItemController::create(const MenuBarItem::Views& views)
{
    return attached(MenuBarItem::create(views));
}

std::shared_ptr<MenuBarItemController> MenuBarItemController::attached(const std::shared_ptr<MenuBarItem>& mainItem)
{
    const std::shared_ptr<MenuBarItemController> self(new MenuBarItemController);
    if (mainItem) self->attach(mainItem);
    return self;
}

void MenuBarItemController::attach(const std::shared_ptr<MenuBarItem>& mainItem)
{
    using namespace Platform::KeyValueOptions;
    add(mainItem);
    ReferenceItem::shared().item = mainItem->item();
    appearanceObserver_ = mainItem->item()->observe(appearancePath, newValue | initial,
                                                    [weak = weak_from_this()](std::string_view keyPath, const auto&) {
                                                        if (const auto self = weak.lock()) self->observeValue(keyPath);
                                                    });
}

MenuBarItemController::~MenuBarItemController()
{
    ReferenceItem::shared().item = nullptr;
}

bool MenuBarItemController::isMenuBarVisible() const
{
    return Platform::Menu::isMenuBarVisible();
}

// The delegate may let go of the controller.
void MenuBarItemController::tellItemsChanged()
{
    if (const auto told = delegate_) told->itemsChanged();
}

void MenuBarItemController::add(const std::shared_ptr<MenuBarItem>& item)
{
    items_.push_back(item);
    tellItemsChanged();
}

void MenuBarItemController::remove(const std::shared_ptr<MenuBarItem>& item)
{
    const std::shared_ptr<MenuBarItem> removed = item;  // may be an element of the list
    Platform::StatusBar::system().removeStatusItem(removed->item());
    std::erase(items_, removed);
    tellItemsChanged();
}

void MenuBarItemController::removeAdditionalItems()
{
    if (items_.size() < 2) return;
    const auto self = shared_from_this();
    const Items all = items_;
    for (std::size_t index = 1; index < all.size(); ++index) remove(all[index]);
}

void MenuBarItemController::tearDown()
{
    if (items_.empty()) return;
    appearanceObserver_.cancel();
    ReferenceItem::shared().item = nullptr;
    remove(items_.front());
}

void MenuBarItemController::observeValue(std::optional<std::string_view> keyPath)
{
    if (keyPath != appearancePath) return;
    const Items all = items_;
    for (const auto& item : all) {
        for (const ViewRef& view : MenuBarItem::Views(item->item()->button()->subviews())) view->layout();
    }
    if (const auto told = delegate_; told && !items_.empty()) told->appearanceChanged(isDark());
}

}  // namespace Lorrel
