#include <gtest/gtest.h>

#include "Lorrel/menubar/MenuBar.h"
#include "Lorrel/menubar/MenuBarItemController.h"
#include "platform/menubar/StatusBar.h"
#include "platform/runtime/Shared.h"
#include "tests/support/EnvironmentVariable.h"

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

class MenuBarItemControllerTest : public testing::Test {
protected:
    static void paint(const Controller& controller, const std::string& look)
    {
        controller.item()->item()->button()->setAppearance(Platform::Appearance(look));
    }
    Calls heard() { return std::exchange(listener->calls, {}); }

    Tests::EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
    Tests::EnvironmentVariable noRuntime{"XDG_RUNTIME_DIR", std::nullopt};
    Platform::Shared<Platform::StatusBar>::Override freshBar;
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    const std::string dark = Platform::Appearance::darkAqua, light = Platform::Appearance::aqua;
};

TEST_F(MenuBarItemControllerTest, KeepsItemsByIdentityAndTellsOfEachChange)
{
    auto controller = Controller::create(true);
    controller->setDelegate(listener);
    const auto extra = controller->makeItem(Platform::ViewRef());
    const auto another = controller->makeItem(Platform::ImageRef());
    EXPECT_EQ(controller->count(), 1U);
    controller->add(extra);
    controller->add(extra);
    EXPECT_EQ(controller->count(), 3U);
    controller->remove(extra);
    EXPECT_EQ(controller->count(), 1U);
    EXPECT_EQ(heard(), (Calls{"items", "items", "items"}));

    controller->removeAdditionalItems();
    EXPECT_EQ(heard(), Calls{});
    controller->add(extra);
    controller->add(another);
    EXPECT_EQ(controller->item(2), another);
    heard();
    controller->removeAdditionalItems();
    EXPECT_EQ(heard(), (Calls{"items", "items"}));
    EXPECT_EQ(controller->items(), Controller::Items{controller->item()});
    controller->setLength(40);
    EXPECT_EQ(controller->length(), 40);
    EXPECT_FALSE(controller->isMenuBarVisible());

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
    paint(*controller, dark);
    EXPECT_EQ(heard(), Calls{"dark"});
    EXPECT_EQ(view->layouts, 2);
    EXPECT_TRUE(controller->isDark());
    controller->observeValue("isVisible");
    controller->observeValue(std::nullopt);
    EXPECT_EQ(heard(), Calls{});

    const auto main = controller->item();
    controller->tearDown();
    controller->tearDown();
    EXPECT_EQ(heard(), Calls{"items"});
    EXPECT_TRUE(Platform::StatusBar::system().items().empty());
    main->item()->button()->setAppearance(Platform::Appearance(light));
    EXPECT_EQ(heard(), Calls{});
}

TEST_F(MenuBarItemControllerTest, MenuBarLooksAsTheControllerThatWasMadeLast)
{
    EXPECT_FALSE(MenuBar::isDark());
    EXPECT_EQ(menuBarTextColor(), Platform::Color::black());
    const auto first = Controller::create(MenuBarItem::Views{});
    paint(*first, dark);
    EXPECT_TRUE(MenuBar::isDark());
    EXPECT_EQ(menuBarTextColor(), Platform::Color::white());
    auto second = Controller::create(true);
    EXPECT_FALSE(MenuBar::isDark());
    paint(*second, dark);
    EXPECT_TRUE(MenuBar::isDark());
    second = nullptr;
    EXPECT_FALSE(MenuBar::isDark()) << "its end clears the reference";
    const auto third = Controller::create(false);
    EXPECT_EQ(third->count(), 0U);
    EXPECT_FALSE(MenuBar::isDark());
}

}  // namespace
