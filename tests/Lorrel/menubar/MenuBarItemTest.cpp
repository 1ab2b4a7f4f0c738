#include <gtest/gtest.h>

#include "Lorrel/menubar/MenuBarHostView.h"
#include "Lorrel/menubar/MenuBarItem.h"
#include "Lorrel/menubar/MenuBarTheme.h"
#include "platform/ui/Image.h"
#include "tests/support/BarWithoutDesktop.h"

namespace {

using namespace Lorrel;
using Platform::Rect;
using Views = MenuBarItem::Views;

ViewRef newView()
{
    return std::make_shared<Platform::View>(Rect::of(0, 0, 10, 10));
}
ImageRef newImage()
{
    return std::make_shared<Platform::Image>(*Platform::Bitmap::create(4, 4));
}

struct MenuBarItemTest : testing::Test, Tests::BarWithoutDesktop {};

TEST_F(MenuBarItemTest, ContentIsAnImageOrViewsNeverBoth)
{
    const ViewRef one = newView(), two = newView();
    const auto item = MenuBarItem::create(Views{one, two});
    EXPECT_EQ(item->views(), (Views{one, two}));

    const ImageRef image = newImage();
    item->setImage(image);
    EXPECT_EQ(item->views(), Views{});
    EXPECT_EQ(item->image(), image);
    EXPECT_EQ(item->item()->button()->imagePosition(), Platform::ImagePosition::imageLeft);
    EXPECT_EQ(one->superview(), nullptr);

    item->setViews(Views{two});
    EXPECT_EQ(item->image(), nullptr);
    item->setViews(item->views());
    EXPECT_EQ(item->views(), Views{two});
    item->setViews(std::nullopt);
    EXPECT_EQ(item->views(), Views{});
}

TEST_F(MenuBarItemTest, SizeIsTwoConstraintsThatAnAddedViewFillsUntilClearForgetsThem)
{
    const auto item = MenuBarItem::create();
    EXPECT_EQ(item->widthConstraint(), nullptr);
    item->setSize(40, 22);
    const auto width = item->widthConstraint();
    item->setSize(60, 20);
    EXPECT_EQ(item->widthConstraint(), width);
    EXPECT_EQ(width->constant(), 60);
    const auto& button = *item->item()->button();
    EXPECT_EQ(button.constraints().size(), 2U);

    item->setImage(newImage());
    const ViewRef filling = newView(), free = newView();
    item->addView(filling);
    item->addSubview(free);
    item->item()->button()->layoutSubtreeIfNeeded();
    EXPECT_EQ(filling->frame(), Rect::of(0, 0, 60, 20));
    EXPECT_EQ(free->frame(), Rect::of(0, 0, 10, 10));
    item->clear();
    EXPECT_EQ(button.constraints().size(), 0U);
    EXPECT_EQ(item->image(), nullptr);
    EXPECT_TRUE(item->views()->empty());
    item->setSize(30, 22);
    EXPECT_EQ(button.constraints().size(), 2U);
    EXPECT_NE(item->widthConstraint(), width);
}

TEST_F(MenuBarItemTest, EveryDarkNameIsDark)
{
    const auto item = MenuBarItem::create();
    const std::pair<const char*, bool> cases[] = {{"NSAppearanceNameAqua", false},
                                                  {"NSAppearanceNameAccessibilityHighContrastDarkAqua", true},
                                                  {"somedARKname", true},
                                                  {"NSAppearanceNameVibrantLight", false}};
    for (const auto& [name, isDark] : cases) {
        item->item()->button()->setAppearance(Platform::Appearance(name));
        EXPECT_EQ(item->isDark(), isDark) << name;
    }
    for (const char* text : {"Light", "", "dark "}) EXPECT_EQ(menuBarTheme(text), std::nullopt) << text;
    EXPECT_EQ(menuBarTheme("dark"), MenuBarTheme::dark);
}

struct Visibility : MenuBarItemDelegate {
    void visibilityChanged(const std::shared_ptr<MenuBarItem>& item, std::optional<bool> isVisible) override
    {
        changes.emplace_back(item.get(), isVisible);
        if (then) then();
    }
    std::vector<std::pair<MenuBarItem*, std::optional<bool>>> changes;
    std::function<void()> then;
};

TEST_F(MenuBarItemTest, DelegateHearsOfChangesOfVisibilityOnlyAndMayLetGoOfTheItem)
{
    auto item = MenuBarItem::create();
    auto delegate = std::make_shared<Visibility>();
    item->setDelegate(delegate);
    const auto statusItem = item->item();
    for (const bool visible : {true, false, false, true}) statusItem->setVisible(visible);
    EXPECT_EQ(delegate->changes, (decltype(delegate->changes){{item.get(), false}, {item.get(), true}}));

    delegate->then = [&] { item = nullptr; };
    for (const bool visible : {false, true}) statusItem->setVisible(visible);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(delegate->changes.size(), 3U);
}

TEST_F(MenuBarItemTest, HostViewShowsItsHighlightOnlyInAHighlightedMenuItem)
{
    const Rect frame = Rect::of(0, 0, 60, 20);
    for (const auto& host :
         {MenuBarHostView::create(frame), MenuBarHostView::create(Platform::View(frame).archive())}) {
        const auto& effect = *host->effectView();
        EXPECT_EQ(host->frame(), frame);
        EXPECT_EQ(effect.layer()->cornerRadius(), 3.0);
        host->setCornerRadius(6);
        EXPECT_EQ(effect.layer()->cornerRadius(), 6.0);

        const auto line = Platform::MenuItem::create("");
        const auto menu = Platform::Menu::create();
        menu->addItem(line);
        line->setView(host);
        for (const bool isHighlighted : {false, true, false}) {
            menu->highlight(isHighlighted ? line : nullptr);
            host->rendered();
            EXPECT_EQ(effect.isHidden(), !isHighlighted);
        }
        EXPECT_EQ(effect.frame(), host->bounds());
    }
}

}  // namespace
