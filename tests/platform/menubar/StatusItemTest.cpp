#include <algorithm>

#include <gtest/gtest.h>
#include <malloc.h>

#include "platform/menubar/StatusBar.h"
#include "platform/ui/Image.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/BusTool.h"
#include "tests/support/Chosen.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TrayHost.h"

namespace {

using namespace Platform;
using Tests::Chosen;
using Tests::eventually;
using Tests::square;
using Tests::TrayHost;
using Strings = std::vector<std::string>;

class StatusItemTest : public testing::Test {
protected:
    bool isShown()
    {
        return eventually([] { return StatusBar::system().isShown(); });
    }
    // What is there to be told, and only that.
    Strings told(TrayHost& host, const char* last)
    {
        EXPECT_TRUE(eventually([&] {
            return std::ranges::any_of(host.signals, [&](const auto& each) { return each.starts_with(last); });
        })) << last;
        host.text("Id");  // later than all that was sent before it
        return std::exchange(host.signals, {});
    }
    static std::string property(const TrayHost& host, const char* name)
    {
        return Tests::busctl({"get-property", host.item, "/StatusNotifierItem", "org.kde.StatusNotifierItem", name});
    }

    Tests::PrivateBus bus;
    StatusItemRef item = StatusBar::system().statusItem(StatusItem::variableLength);
};

TEST_F(StatusItemTest, AppearsWhenTheHostStartsLateAndAgainAfterEachOfTwentyRestarts)
{
    item->button()->setTitle("42 %");
    RunLoop::current().drain();
    for (int round = 0; round < 20; ++round) {
        TrayHost host;
        ASSERT_TRUE(host.waitForItem()) << round;
        EXPECT_EQ(host.registrations, 1);
        ASSERT_TRUE(isShown());
        EXPECT_EQ(host.text("Title"), "42 %");
    }
    EXPECT_TRUE(eventually([] { return !Menu::isMenuBarVisible(); }));
}

TEST_F(StatusItemTest, OutlivesASilentHostAndARestartOfTheBus)
{
    {
        TrayHost silent(false);
        ASSERT_TRUE(silent.waitForItem());
        item->button()->setTitle("changed meanwhile");
        EXPECT_EQ(silent.text("Title"), "changed meanwhile");
        EXPECT_FALSE(StatusBar::system().isShown());
    }
    bus.stop();
    RunLoop::current().drain();
    bus.start();
    TrayHost host;
    EXPECT_TRUE(host.waitForItem());
    EXPECT_TRUE(isShown());
    bus.stop();
    RunLoop::current().drain();
    bus.start();  // the host does not claim its name again
    EXPECT_TRUE(eventually([] { return !StatusBar::system().isShown(); }));
}

TEST_F(StatusItemTest, NeitherWaitsNorGrowsWhileTheBusStandsStillAndThenTellsTheLast)
{
    Tests::ReplacedClock clock;
    const MenuItemRef line = MenuItem::create("");
    item->setMenu(Menu::create());
    item->menu()->addItem(line);
    TrayHost host;
    ASSERT_TRUE(host.waitForItem() && isShown());
    host.pixmap();
    host.callMenu("GetLayout", "iias", 0, -1, 0);
    const auto start = std::chrono::steady_clock::now();
    bus.freeze();
    StatusBar::system().statusItem(StatusItem::squareLength);  // comes and goes
    RunLoop::current().drain();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    const auto before = mallinfo2().uordblks;
    for (int step = 0; step < 1'500; ++step) {
        item->setToolTip(std::to_string(step));
        line->setTitle(std::string(20'000, 'x') + std::to_string(step));  // fills what the kernel keeps
        clock->advance(0.1);
        RunLoop::current().drain();
    }
    EXPECT_LT(mallinfo2().uordblks, before + 128 * 1024);
    item->setVisible(false);
    bus.thaw();
    EXPECT_TRUE(eventually([&] {
        clock->advance(0.01);
        return std::ranges::count(host.signals, "NewStatus Passive") == 1;
    }));
    EXPECT_EQ(property(host, "ToolTip"), "(sa(iiay)ss) \"\" 0 \"1499\" \"\"\n");
}

TEST_F(StatusItemTest, TellsTheHostEverythingOfItself)
{
    item->setToolTip("tip\xFF");
    item->setAccessibilityText("load");
    item->button()->setImage(square(22, Color::deviceRGB(1, 0.5, 0, 0.5)));
    TrayHost host;
    ASSERT_TRUE(host.waitForItem());

    const std::pair<const char*, const char*> properties[] = {
        {"Category", "s \"ApplicationStatus\"\n"},
        {"Status", "s \"Active\"\n"},
        {"IconAccessibleDesc", "s \"load\"\n"},
        {"ItemIsMenu", "b false\n"},
        {"ToolTip", "(sa(iiay)ss) \"\" 0 \"tip\\357\\277\\275\" \"\"\n"}};
    for (const auto& [name, value] : properties) EXPECT_EQ(property(host, name), value);
    EXPECT_NE(Tests::busctl({"introspect", host.item, "/StatusNotifierItem"}).find("a(iiay)"), std::string::npos);

    const auto pixmap = host.pixmap();
    ASSERT_EQ(pixmap.pixels.size(), 22U * 22);
    EXPECT_EQ(pixmap.pixels.at(11 * 22 + 11) >> 8, 0x80FF80U) << "not premultiplied";

    for (const auto& call : {"Get", "Activate", "Scroll", "Nonsense"}) EXPECT_FALSE(host.callItem(call, "s", "x"));
}

TEST_F(StatusItemTest, SizesFollowContentLengthAndConstraints)
{
    TrayHost host;
    ASSERT_TRUE(host.waitForItem());
    const auto width = [&] { return host.pixmap().width; };
    EXPECT_EQ(width(), 22);
    item->button()->setImage(square(30, Color::black()));
    EXPECT_EQ(width(), 30);
    item->setLength(50);
    EXPECT_EQ(width(), 50);
    item->button()->widthAnchor().constraintEqualToConstant(64)->setActive(true);
    EXPECT_EQ(width(), 64);
}

TEST_F(StatusItemTest, FirstChangeGoesOutAtOnceLaterOnesMergeAndNothingGoesOutTwice)
{
    TrayHost host;
    ASSERT_TRUE(host.waitForItem() && isShown());
    host.pixmap();
    Tests::ReplacedClock clock;
    clock->advance(1);

    item->setAccessibilityText("first");
    EXPECT_EQ(told(host, "NewIcon"), (Strings{"NewIcon"}));
    for (int step = 0; step < 10; ++step) {
        item->setAccessibilityText(std::to_string(step));
        RunLoop::current().drain();
    }
    host.text("Category");
    EXPECT_EQ(host.signals, Strings{});
    clock->advance(0.1);
    item->setVisible(false);
    EXPECT_EQ(told(host, "NewStatus"), (Strings{"NewIcon", "NewStatus Passive"}));
    EXPECT_EQ(host.text("IconAccessibleDesc"), "9");

    clock->advance(1);
    item->setAccessibilityText("9");
    item->button()->setNeedsDisplay(true);
    RunLoop::current().drain();
    clock->advance(1);
    host.text("Id");
    EXPECT_EQ(host.signals, Strings{});
    clock->advance(3600);
    RunLoop::current().drain();
    EXPECT_EQ(RunLoop::current().drain(), 0U) << "an idle item waits for nothing";
}

TEST_F(StatusItemTest, HundredThousandUpdatesLeakNothing)
{
    TrayHost host;
    ASSERT_TRUE(host.waitForItem() && isShown());
    Tests::ReplacedClock clock;
    const auto update = [&](int count) {
        for (int step = 0; step < count; ++step) {
            item->setToolTip(std::to_string(step % 7));
            item->button()->setImage(square(22, Color::calibratedWhite(step % 3 / 2.0)));
            if (step % 100 == 0) {
                clock->advance(0.2);
                host.text("ToolTip");
                host.signals.clear();
            }
        }
        RunLoop::current().drain();
        return mallinfo2().uordblks;
    };
    const auto before = update(2'000);
    const auto after = update(100'000);
    EXPECT_LT(after, before + 64 * 1024);
}

TEST_F(StatusItemTest, ClicksReachTargetAndActionUnlessThereIsAMenu)
{
    const auto target = std::make_shared<Chosen>();
    item->button()->setTarget(target);
    item->button()->setAction(&Chosen::choose);
    item->button()->setTag(7);
    Strings others;
    item->setMiddleClickHandler([&] { others.push_back("middle"); });
    item->setScrollHandler([&](int delta, bool isHorizontal) {
        others.push_back(std::to_string(delta) + (isHorizontal ? " across" : " up"));
    });
    TrayHost host;
    ASSERT_TRUE(host.waitForItem());

    EXPECT_TRUE(host.callItem("Activate", "ii", 1, 2));
    host.callItem("SecondaryActivate", "ii", 1, 2);
    host.callItem("Scroll", "is", -120, "vertical");
    host.callItem("Scroll", "is", 15, "horizontal");
    RunLoop::current().drain();
    EXPECT_EQ(target->tags, (std::vector<long>{7}));
    EXPECT_EQ(others, (Strings{"middle", "-120 up", "15 across"}));

    item->setMenu(Menu::create());
    EXPECT_EQ(property(host, "ItemIsMenu"), "b true\n");
    host.callItem("Activate", "ii", 1, 2);
    RunLoop::current().drain();
    EXPECT_EQ(target->tags.size(), 1U);
}

TEST_F(StatusItemTest, MayEndInItsOwnActionOrWorkOnUnseenAndLeavesTheBarAtOnce)
{
    const auto target = std::make_shared<Chosen>();
    target->then = [&] { item = nullptr; };
    item->button()->setTarget(target);
    item->button()->setAction(&Chosen::choose);
    TrayHost host;
    ASSERT_TRUE(host.waitForItem() && isShown());
    host.callItem("Activate", "ii", 0, 0);
    EXPECT_TRUE(eventually([&] { return !item; }));
    EXPECT_FALSE(host.property("Title", "s")) << "its connection is gone";

    item = StatusBar::system().statusItem(StatusItem::variableLength);
    ASSERT_TRUE(host.waitForItem(2) && isShown());
    for (int round = 0; round < 2; ++round) StatusBar::system().removeStatusItem(item);
    item->button()->setTitle("unseen");
    item->setMenu(Menu::create());
    EXPECT_FALSE(host.property("Title", "s"));
    EXPECT_TRUE(StatusBar::system().items().empty());
}

TEST_F(StatusItemTest, ObserversMayEndEachOther)
{
    Strings calls;
    Subscription second;
    const auto first = item->observe("isVisible", 0, [&](auto, const auto&) {
        calls.push_back("first");
        second.cancel();
    });
    second = item->observe("isVisible", 0, [&](auto, const auto&) { calls.push_back("second"); });
    item->setVisible(false);
    EXPECT_EQ(calls, Strings{"first"});
}

}  // namespace
