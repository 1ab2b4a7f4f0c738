#include <algorithm>
#include <regex>

#include <gtest/gtest.h>

#include "platform/menubar/StatusBar.h"
#include "platform/menubar/internal/MenuItemProperties.h"
#include "platform/ui/Image.h"
#include "platform/ui/views/VisualEffectView.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/BusTool.h"
#include "tests/support/Chosen.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TrayHost.h"

namespace {

using namespace Platform;
using Tests::Chosen;
using Tests::eventually;
using Tests::TrayHost;
using Strings = std::vector<std::string>;

class Watching : public MenuDelegate {
public:
    void menuNeedsUpdate(Menu& menu) override
    {
        calls.push_back("update");
        if (then) then(menu);
    }
    void menuWillOpen(Menu&) override { calls.push_back("open"); }
    void menuDidClose(Menu&) override { calls.push_back("close"); }
    Strings calls;
    std::function<void(Menu&)> then;
};

class MenuTest : public testing::Test {
protected:
    void SetUp() override
    {
        item->setMenu(menu);
        menu->setDelegate(delegate);
        host.emplace();
        ASSERT_TRUE(host->waitForItem() && eventually([] { return StatusBar::system().isShown(); }));
    }

    MenuItemRef add(const std::string& title, long tag, const MenuRef& to)
    {
        auto added = MenuItem::create(title, &Chosen::choose);
        added->setTarget(target);
        added->setTag(tag);
        to->addItem(added);
        return added;
    }
    // What busctl writes of a call's answer.
    std::string answer(std::vector<std::string> words) const
    {
        words.insert(words.begin(), {"call", "--", host->item, "/MenuBar", "com.canonical.dbusmenu"});
        return Tests::busctl(words);
    }
    // "0 1 children-display s submenu 1 | 1 1 label s One 0": of each item its
    // number, its properties and its items; of a picture the type only.
    std::string layout(const char* depth = "-1") const
    {
        const std::string text = answer({"GetLayout", "iias", "0", depth, "0"});
        const std::string plain = std::regex_replace(text, std::regex(R"(^\S+ \d+ |"|\n)"), "");
        const std::string hidden = std::regex_replace(plain, std::regex(R"(ay [\d ]+)"), "ay ");
        return std::regex_replace(hidden, std::regex(R"(\(ia\{sv\}av\))"), "|");
    }
    void send(int number, const char* event) { host->callMenu("Event", "isvu", number, event, "s", "", 0U); }
    bool aboutToShow() const { return answer({"AboutToShow", "i", "0"}) == "b true\n"; }

    Tests::PrivateBus bus;
    StatusItemRef item = StatusBar::system().statusItem(StatusItem::squareLength);
    MenuRef menu = Menu::create();
    std::shared_ptr<Chosen> target = std::make_shared<Chosen>();
    std::shared_ptr<Watching> delegate = std::make_shared<Watching>();
    std::optional<TrayHost> host;
};

TEST_F(MenuTest, LayoutSaysAllOfEveryItemAndNumbersStay)
{
    const auto open = add("Open_it", 1, menu);
    open->setKeyEquivalent("\uF704");
    menu->addItem(MenuItem::separator());
    const auto more = add("More", 2, menu);
    more->setSubmenu(Menu::create());
    const auto inner = add("Inner", 3, more->submenu());
    inner->setState(MenuItemState::mixed);
    inner->setEnabled(false);
    const auto picture = add("Picture", 4, menu);
    picture->setImage(std::make_shared<Image>(*Bitmap::create(512, 512), Size{16, 16}));
    EXPECT_EQ(pictureOf(*picture)->width(), 32);
    picture->setHidden(true);

    const std::string lines = "| 1 2 label s Open__it shortcut aas 1 2 Super F1 0 | 2 1 type s separator 0 ";
    const std::string last = "3 visible b false label s Picture icon-data ay ";
    EXPECT_EQ(layout(), "0 1 children-display s submenu 4 " + lines +
                            "| 3 2 label s More children-display s submenu 1 | 4 4 label s Inner enabled b false "
                            "toggle-type s checkmark toggle-state i -1 0 | 5 " +
                            last);
    EXPECT_EQ(layout("0"), "0 1 children-display s submenu 0");
    menu->removeItem(more);
    menu->addItem(more);
    more->setSubmenu(more->submenu());
    EXPECT_EQ(layout("1"), "0 1 children-display s submenu 4 " + lines + "| 5 " + last +
                               "| 3 2 label s More children-display s submenu 0");
    const std::string before = layout();
    inner->setSubmenu(menu);  // neither way round can a menu lie in itself
    more->submenu()->addItem(more);
    EXPECT_EQ(layout(), before);
}

TEST_F(MenuTest, ChosenItemsActOnceAndOnlyWhenTheyCan)
{
    add("One", 1, menu);
    add("Off", 2, menu)->setEnabled(false);
    add("Gone", 3, menu);
    layout();
    menu->removeItem(menu->itemWithTag(3));
    for (const int number : {1, 2, 3, 99, -1}) send(number, "clicked");
    EXPECT_EQ(answer({"EventGroup", "a(isvu)", "2", "1", "clicked", "i", "0", "0", "77", "clicked", "s", "", "0"}),
              "ai 1 77\n");
    RunLoop::current().drain();
    EXPECT_EQ(target->tags, (std::vector<long>{1, 1}));
}

TEST_F(MenuTest, DelegateMayChangeTheMenuJustBeforeItShows)
{
    const auto reading = add("CPU", 1, menu);
    layout();
    delegate->then = [&](Menu&) { reading->setTitle("CPU 7 %"); };
    EXPECT_TRUE(aboutToShow());
    EXPECT_FALSE(aboutToShow()) << "the same title is no change";
    send(0, "opened");
    send(1, "hovered");
    EXPECT_TRUE(reading->isHighlighted());
    send(0, "closed");
    RunLoop::current().drain();
    EXPECT_FALSE(reading->isHighlighted());
    EXPECT_EQ(delegate->calls, (Strings{"update", "update", "open", "close"}));
    EXPECT_EQ(layout(), "0 1 children-display s submenu 1 | 1 1 label s CPU 7 % 0");
    send(1, "hovered");
    menu->removeAllItems();
    EXPECT_FALSE(reading->isHighlighted());
    EXPECT_EQ(menu->highlightedItem(), nullptr);
}

TEST_F(MenuTest, ChangesOfItemsAndOfListsAreToldApart)
{
    const auto reading = add("CPU", 1, menu);
    layout();
    const auto next = [&] {
        EXPECT_TRUE(eventually([&] { return !host->signals.empty(); }));
        return host->signals.empty() ? "nothing" : std::exchange(host->signals, {}).front();
    };
    EXPECT_EQ(next(), "LayoutUpdated");
    reading->setState(MenuItemState::on);
    EXPECT_EQ(next(), "ItemsPropertiesUpdated");
    item->setMenu(Menu::create());
    EXPECT_EQ(next(), "LayoutUpdated");
    EXPECT_EQ(layout(), "0 1 children-display s submenu 0");

    host.reset();
    EXPECT_TRUE(eventually([] { return !StatusBar::system().isShown(); }));
    Tests::ReplacedClock clock;
    clock->advance(1e9);  // past all that was told by the machine's clock
    item->setMenu(menu);
    RunLoop::current().drain();
    host.emplace();
    EXPECT_TRUE(eventually([] { return StatusBar::system().isShown(); }));
    clock->advance(1);
    EXPECT_EQ(next(), "LayoutUpdated") << "what changed while nobody listened";
}

TEST_F(MenuTest, OpeningIsAskedOfTheHostAndLeftToTheProgramWhereThatDoesNot)
{
    Tests::ReplacedClock clock;
    int left = 0;
    const struct {
        std::function<void()> answer;
        int left;
    } cases[] = {{[&] { aboutToShow(); }, 0}, {[&] { send(0, "opened"); }, 0}, {[&] { send(0, "closed"); }, 1}};
    for (const auto& one : cases) {
        left = 0;
        host->signals.clear();
        item->openMenu([&] { ++left; });
        EXPECT_TRUE(eventually([&] { return host->signals == Strings{"ItemActivationRequested"}; }));
        one.answer();
        clock->advance(0.2);
        RunLoop::current().drain();
        EXPECT_EQ(left, 0) << "it may still begin";
        clock->advance(0.1);
        RunLoop::current().drain();
        EXPECT_EQ(left, one.left);
    }
    item->setVisible(false);
    item->openMenu([&] { ++left; });
    clock->advance(0.001);
    RunLoop::current().drain();
    EXPECT_EQ(left, 2) << "nobody is there to wait for";
}

TEST_F(MenuTest, ClosesWithWhateverTakesItOffTheScreen)
{
    const MenuRef below = Menu::create();
    add("More", 1, menu)->setSubmenu(below);
    below->setDelegate(delegate);
    const std::function<void()> ways[] = {
        [&] { send(0, "closed"); },
        [&] { item->setMenu(nullptr); },
        [&] { host.reset(); },
        [&] {
            bus.stop();
            EXPECT_TRUE(eventually([] { return !StatusBar::system().isShown(); }));
            bus.start();
        },
        [&] { StatusBar::system().removeStatusItem(item); },
    };
    for (const auto& way : ways) {
        item->setMenu(menu);
        layout();
        for (const int number : {0, 1}) send(number, "opened");
        RunLoop::current().drain();
        delegate->calls.clear();
        way();
        EXPECT_TRUE(eventually([&] {
            return delegate->calls == Strings{"close", "close"};
        })) << &way - ways
            << testing::PrintToString(delegate->calls);
        host.reset();
        host.emplace();
        eventually([&] { return StatusBar::system().isShown() || StatusBar::system().items().empty(); });
    }
}

TEST_F(MenuTest, ItemMayEndWithItsMenuOpenAndInItsOwnAction)
{
    add("Quit", 1, menu);
    layout();
    send(0, "opened");
    target->then = [&] {
        item = nullptr;
        menu = nullptr;
    };
    send(1, "clicked");
    EXPECT_TRUE(eventually([&] { return !item; }));
    send(0, "closed");
    EXPECT_FALSE(host->callMenu("AboutToShow", "i", 0));
    EXPECT_EQ(target->tags.size(), 1U);
}

TEST_F(MenuTest, ItemMayEndWhileItsMenuIsBroughtUpToDate)
{
    add("One", 1, menu);
    layout();
    delegate->then = [&](Menu& shown) {
        shown.removeAllItems();
        item = nullptr;
    };
    aboutToShow();
    EXPECT_EQ(item, nullptr);
    EXPECT_FALSE(host->callMenu("AboutToShow", "i", 0));
}

TEST_F(MenuTest, CallsAboutWhatIsNotThereHarmNothing)
{
    add("One", 1, menu);
    EXPECT_NE(answer({"Event", "d", "1.5"}).find("arguments"), std::string::npos);
    EXPECT_TRUE(host->callMenu("GetProperty", "is", 1, "nothing"));
    EXPECT_TRUE(host->callMenu("GetGroupProperties", "aias", 2, 1, 55, 1, "label"));
    EXPECT_TRUE(host->callMenu("AboutToShowGroup", "ai", 2, 0, 55));
    EXPECT_EQ(layout(), "0 1 children-display s submenu 1 | 1 1 label s One 0");
}

TEST_F(MenuTest, ViewsShowAsPicturesThatFollowTheHighlight)
{
    const auto view = std::make_shared<VisualEffectView>(Rect::of(0, 0, 40, 20));
    view->setState(VisualEffectView::State::active);
    const auto line = add("hidden title", 1, menu);
    line->setView(view);
    EXPECT_EQ(layout(), "0 1 children-display s submenu 1 | 1 2 label s  icon-data ay ");
    const auto tells = [&](const char* signal) {
        return eventually([&] { return std::ranges::count(host->signals, signal) > 0; });
    };
    EXPECT_TRUE(tells("LayoutUpdated"));
    send(1, "hovered");
    EXPECT_TRUE(tells("ItemsPropertiesUpdated"));
    line->setView(nullptr);
    EXPECT_EQ(view->enclosingMenuItem(), nullptr);
}

TEST(MenuShortcuts, AreNamedAsReadersOfMenusCallThem)
{
    const std::pair<const char*, const char*> cases[] = {{"", ""},       {"a", "a"},       {" ", "space"},
                                                         {"⎵", "space"}, {"\uF704", "F1"}, {"\uF717", "F20"},
                                                         {"↑", "Up"},    {"\r", "Return"}, {"ü", "ü"}};
    for (const auto& [text, name] : cases) EXPECT_EQ(shortcutKeyName(text), name);
}

}  // namespace
