#pragma once

#include <optional>
#include <string_view>

#include "Lorrel/menubar/IMenuBarItemController.h"

namespace Lorrel {

// Owns the items. Follows the look of the menu bar by the main item's button
// where it was made with a main item. Its end leaves items that the
// application still holds in the bar; tearDown() takes the main item away.
class MenuBarItemController : public IMenuBarItemController,
                              public std::enable_shared_from_this<MenuBarItemController> {
public:
    using Items = std::vector<std::shared_ptr<MenuBarItem>>;

    // With or without a main item, which is empty then.
    static std::shared_ptr<MenuBarItemController> create(bool withMainItem);
    static std::shared_ptr<MenuBarItemController> create(const ImageRef& image);
    static std::shared_ptr<MenuBarItemController> create(const ViewRef& view);
    static std::shared_ptr<MenuBarItemController> create(const MenuBarItem::Views& views);
    ~MenuBarItemController() override;

    std::shared_ptr<MenuBarDelegate> delegate() const override { return delegate_; }
    void setDelegate(std::shared_ptr<MenuBarDelegate> delegate) override { delegate_ = std::move(delegate); }
    const Items& items() const override { return items_; }
    std::shared_ptr<MenuBarItem> item() const override { return items_.front(); }
    bool isDark() const override { return item()->isDark(); }
    bool isMenuBarVisible() const override;
    std::size_t count() const override { return items_.size(); }
    void add(const std::shared_ptr<MenuBarItem>& item) override;
    void removeAdditionalItems() override;
    void remove(const std::shared_ptr<MenuBarItem>& item) override;
    std::shared_ptr<MenuBarItem> makeItem(const ImageRef& image) const override { return MenuBarItem::create(image); }
    std::shared_ptr<MenuBarItem> makeItem(const ViewRef& view) const override { return MenuBarItem::create(view); }
    std::shared_ptr<MenuBarItem> item(std::size_t index) const override { return items_[index]; }
    void tearDown() override;

    // Of the main item, only while there is one.
    const Platform::MenuRef& menu() const { return item()->menu(); }
    void setMenu(const Platform::MenuRef& menu) { item()->setMenu(menu); }
    double length() const { return item()->item()->length(); }
    void setLength(double length) { item()->item()->setLength(length); }

    // Has the items' views laid out again and tells the delegate, for the key
    // path "button.effectiveAppearance"; nothing for another or none.
    void observeValue(std::optional<std::string_view> keyPath);

private:
    MenuBarItemController() = default;
    static std::shared_ptr<MenuBarItemController> attached(const std::shared_ptr<MenuBarItem>& mainItem);
    void attach(const std::shared_ptr<MenuBarItem>& mainItem);
    void tellItemsChanged();

    std::shared_ptr<MenuBarDelegate> delegate_;
    Items items_;
    Platform::Subscription appearanceObserver_;
};

}  // namespace Lorrel
