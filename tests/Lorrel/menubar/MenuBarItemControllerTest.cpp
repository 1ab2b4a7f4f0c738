#include <gtest/gtest.h>

#include "Lorrel/menubar/MenuBar.h"
#include "Lorrel/menubar/MenuBarItemController.h"
#include "tests/support/BarWithoutDesktop.h"

namespace {

using namespace Lorrel;
using Calls = std::vector<std::string>;
using Controller = MenuBarItemController;

class Listener : public MenuBarDelegate {
public:
    void itemsChanged() override { calls.push_back("items"); }
    void appearanceChanged(bool isDark) override { calls.push_back(isDark ? "dark" : "light"); }
    Calls calls;
};

class CountedView : public Platform::View {
public:
    void layout() override { ++layouts; }
    int layouts = 0;
};

struct MenuBarItemControllerTest : testing::Test, Tests::BarWithoutDesktop {
    static void paintDark(const MenuBarItem& item)
    {
        item.item()->button()->setAppearance(Platform::Appearance(Platform::Appearance::darkAqua));
    }
    Calls heard() { return std::exchange(listener->calls, {}); }

    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
};

TEST_F(MenuBarItemControllerTest, KeepsItemsByIdentityAndTellsOfEachChange)
{
    auto controller = Controller::create(true);
    controller->setDelegate(listener);
    const auto extra = controller->makeItem(Platform::ViewRef());
    EXPECT_EQ(controller->count(), 1U);
    for (int round = 0; round < 2; ++round) controller->add(extra);
    EXPECT_EQ(controller->count(), 3U);
    controller->remove(extra);
    EXPECT_EQ(controller->count(), 1U);
    EXPECT_EQ(heard(), (Calls{"items", "items", "items"}));
    controller->removeAdditionalItems();
    EXPECT_EQ(heard(), Calls{});
    controller->add(extra);
    EXPECT_EQ(controller->item(1), extra);
    controller->removeAdditionalItems();
    EXPECT_EQ(heard(), (Calls{"items", "items"}));
    EXPECT_EQ(controller->items(), Controller::Items{controller->item()});

    const auto main = controller->item();
    controller->add(controller->makeItem(Platform::ImageRef()));
    controller = nullptr;
    EXPECT_EQ(Platform::StatusBar::system().items(), std::vector{main->item()}) << "what is still held stays";
}

TEST_F(MenuBarItemControllerTest, FollowsTheLookAndLaysViewsOutAgain)
{
    const auto view = std::make_shared<CountedView>();
    const auto controller = Controller::create(view);
    EXPECT_EQ(view->layouts, 1) << "the first notice came with the observation";
    controller->setDelegate(listener);
    for (int round = 0; round < 2; ++round) paintDark(*controller->item());
    EXPECT_EQ(heard(), Calls{"dark"});
    EXPECT_EQ(view->layouts, 2);

    const auto main = controller->item();
    for (int round = 0; round < 2; ++round) controller->tearDown();
    EXPECT_EQ(heard(), Calls{"items"});
    EXPECT_TRUE(Platform::StatusBar::system().items().empty());
    main->item()->button()->setAppearance(Platform::Appearance(Platform::Appearance::aqua));
    EXPECT_EQ(heard(), Calls{});
}

TEST_F(MenuBarItemControllerTest, MenuBarLooksAsTheControllerThatWasMadeLast)
{
    EXPECT_FALSE(MenuBar::isDark());
    EXPECT_EQ(menuBarTextColor(), Platform::Color::black());
    const auto first = Controller::create(MenuBarItem::Views{});
    paintDark(*first->item());
    EXPECT_TRUE(MenuBar::isDark());
    EXPECT_EQ(menuBarTextColor(), Platform::Color::white());
    auto second = Controller::create(true);
    EXPECT_FALSE(MenuBar::isDark());
    paintDark(*second->item());
    EXPECT_TRUE(MenuBar::isDark());
    second = nullptr;
    EXPECT_FALSE(MenuBar::isDark()) << "its end clears the reference";
    EXPECT_EQ(Controller::create(false)->count(), 0U);
}

}  // namespace
