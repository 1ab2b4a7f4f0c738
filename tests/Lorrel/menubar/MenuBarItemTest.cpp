#include <gtest/gtest.h>

#include "Lorrel/menubar/MenuBarHostView.h"
#include "Lorrel/menubar/MenuBarItem.h"
#include "Lorrel/menubar/MenuBarTheme.h"
#include "platform/menubar/StatusBar.h"
#include "platform/runtime/Shared.h"
#include "platform/ui/Image.h"
#include "tests/support/EnvironmentVariable.h"

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

// Without a session bus, as on a machine without a desktop.
class MenuBarItemTest : public testing::Test {
protected:
    Tests::EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
    Tests::EnvironmentVariable noRuntime{"XDG_RUNTIME_DIR", std::nullopt};
    Platform::Shared<Platform::StatusBar>::Override freshBar;
};

TEST_F(MenuBarItemTest, ContentIsAnImageOrViewsNeverBoth)
{
    const ViewRef one = newView(), two = newView();
    const auto item = MenuBarItem::create(Views{one, two});
    EXPECT_EQ(item->views(), (Views{one, two}));
    EXPECT_EQ(item->item()->length(), -1);

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
    EXPECT_EQ(MenuBarItem::create(image)->image(), image);
}

TEST_F(MenuBarItemTest, AbsentTitleIsEmptyAndTargetsComeAndGoWhole)
{
    const auto item = MenuBarItem::create();
    item->setTitle("7 %");
    item->setTitle(std::nullopt);
    EXPECT_EQ(item->title(), "");
    const auto target = std::make_shared<Platform::Responder>();
    item->setTarget(target, static_cast<void (Platform::Control::*)()>(&Platform::Control::performClick), 9);
    EXPECT_EQ(item->target(), target);
    EXPECT_TRUE(item->action());
    EXPECT_EQ(item->item()->button()->tag(), 9);
    item->removeTarget();
    EXPECT_EQ(item->target(), nullptr);
    EXPECT_FALSE(item->action());
    EXPECT_EQ(item->item()->button()->tag(), 0);
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
    for (const char* text : {"Light", "", "dark ", "DARK"}) EXPECT_EQ(menuBarTheme(text), std::nullopt);
    EXPECT_EQ(menuBarTheme("dark"), MenuBarTheme::dark);
    EXPECT_EQ(rawValue(MenuBarTheme::light), "light");
}

class Visibility : public MenuBarItemDelegate {
public:
    void visibilityChanged(const std::shared_ptr<MenuBarItem>& item, std::optional<bool> isVisible) override
    {
        changes.emplace_back(item.get(), isVisible);
        if (then) then();
    }
    std::vector<std::pair<MenuBarItem*, std::optional<bool>>> changes;
    std::function<void()> then;
};

TEST_F(MenuBarItemTest, DelegateHearsOfVisibilityAndMayLetGoOfTheItem)
{
    auto item = MenuBarItem::create();
    auto delegate = std::make_shared<Visibility>();
    item->setDelegate(delegate);
    item->item()->setVisible(false);
    item->item()->setVisible(true);
    EXPECT_EQ(delegate->changes, (decltype(delegate->changes){{item.get(), false}, {item.get(), true}}));

    delegate->then = [&] { item = nullptr; };
    const auto statusItem = item->item();
    statusItem->setVisible(false);
    EXPECT_EQ(item, nullptr);
    statusItem->setVisible(true);
    EXPECT_EQ(delegate->changes.size(), 3U);
}

TEST_F(MenuBarItemTest, HostViewShowsItsHighlightOnlyInAHighlightedMenuItem)
{
    for (const auto& host : {MenuBarHostView::create(Rect::of(0, 0, 60, 20)),
                             MenuBarHostView::create(Platform::View(Rect::of(0, 0, 60, 20)).archive())}) {
        const auto& effect = *host->effectView();
        EXPECT_EQ(host->frame(), Rect::of(0, 0, 60, 20));
        EXPECT_EQ(host->cornerRadius(), 4.0);
        EXPECT_EQ(effect.layer()->cornerRadius(), 3.0);
        host->setCornerRadius(6);
        EXPECT_EQ(effect.layer()->cornerRadius(), 6.0);
        EXPECT_FALSE(host->allowsVibrancy());

        host->rendered();
        EXPECT_TRUE(effect.isHidden());
        EXPECT_EQ(effect.frame(), host->bounds());
        const auto menu = Platform::Menu::create();
        const auto line = Platform::MenuItem::create("");
        menu->addItem(line);
        line->setView(host);
        menu->highlight(line);
        EXPECT_TRUE(host->needsDisplay());
        host->rendered();
        EXPECT_FALSE(effect.isHidden());
        menu->highlight(nullptr);
        host->rendered();
        EXPECT_TRUE(effect.isHidden());
    }
}

}  // namespace
