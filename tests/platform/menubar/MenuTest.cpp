#include <gtest/gtest.h>

#include "platform/menubar/StatusBar.h"
#include "platform/menubar/internal/MenuItemProperties.h"
#include "platform/ui/Image.h"
#include "platform/ui/views/VisualEffectView.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/ChildProcess.h"
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

// "1 label=Open shortcut [2 ...]" of a layout's node, entered by the caller.
std::string nodeText(sd_bus_message* node)
{
    int number = 0;
    sd_bus_message_read(node, "i", &number);
    std::string text = std::to_string(number);
    sd_bus_message_enter_container(node, 'a', "{sv}");
    while (sd_bus_message_enter_container(node, 'e', "sv") > 0) {
        const char *name = nullptr, *type = nullptr;
        sd_bus_message_read(node, "s", &name);
        text += std::string(" ") + name;
        sd_bus_message_peek_type(node, nullptr, &type);
        const std::string valueType = type;
        if (valueType == "s") {
            const char* value = nullptr;
            sd_bus_message_read(node, "v", "s", &value);
            text += std::string("=") + value;
        } else if (valueType == "b" || valueType == "i") {
            int value = 0;
            sd_bus_message_read(node, "v", valueType.c_str(), &value);
            text += '=' + std::to_string(value);
        } else {
            sd_bus_message_skip(node, "v");
        }
        sd_bus_message_exit_container(node);
    }
    sd_bus_message_exit_container(node);
    sd_bus_message_enter_container(node, 'a', "v");
    while (sd_bus_message_enter_container(node, 'v', "(ia{sv}av)") > 0) {
        sd_bus_message_enter_container(node, 'r', "ia{sv}av");
        text += " [" + nodeText(node) + ']';
        sd_bus_message_exit_container(node);
        sd_bus_message_exit_container(node);
    }
    sd_bus_message_exit_container(node);
    return text;
}

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
    std::string layout(int depth = -1)
    {
        auto answer = host->callMenu("GetLayout", "iias", 0, depth, 0);
        std::uint32_t revision = 0;
        if (!answer || sd_bus_message_read(answer.get(), "u", &revision) < 0) return "no answer";
        sd_bus_message_enter_container(answer.get(), 'r', "ia{sv}av");
        return nodeText(answer.get());
    }
    void send(int number, const char* event) { host->callMenu("Event", "isvu", number, event, "s", "", 0U); }
    bool aboutToShow(int number)
    {
        int isOld = 0;
        const auto answer = host->callMenu("AboutToShow", "i", number);
        return answer && sd_bus_message_read(answer.get(), "b", &isOld) > 0 && isOld;
    }

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

    const std::string root = "0 children-display=submenu [1 label=Open__it shortcut] [2 type=separator]";
    const std::string rest = " [5 visible=0 label=Picture icon-data]";
    EXPECT_EQ(layout(), root +
                            " [3 label=More children-display=submenu [4 label=Inner enabled=0 toggle-type=checkmark "
                            "toggle-state=-1]]" +
                            rest)
        << layout();
    EXPECT_EQ(layout(0), "0 children-display=submenu");
    menu->removeItem(more);
    menu->addItem(more);
    more->setSubmenu(more->submenu());
    EXPECT_EQ(layout(1), root + rest + " [3 label=More children-display=submenu]");
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
    const auto group = host->callMenu("EventGroup", "a(isvu)", 2, 1, "clicked", "i", 0, 0U, 77, "clicked", "s", "", 0U);
    ASSERT_TRUE(group);
    const void* unknown = nullptr;
    std::size_t size = 0;
    sd_bus_message_read_array(group.get(), 'i', &unknown, &size);
    ASSERT_EQ(size, sizeof(int));
    EXPECT_EQ(*static_cast<const int*>(unknown), 77);
    RunLoop::current().drain();
    EXPECT_EQ(target->tags, (std::vector<long>{1, 1}));
}

TEST_F(MenuTest, DelegateMayChangeTheMenuJustBeforeItShows)
{
    const auto reading = add("CPU", 1, menu);
    layout();
    delegate->then = [&](Menu&) { reading->setTitle("CPU 7 %"); };
    EXPECT_TRUE(aboutToShow(0));
    EXPECT_FALSE(aboutToShow(0)) << "the same title is no change";
    send(0, "opened");
    send(1, "hovered");
    EXPECT_TRUE(reading->isHighlighted());
    send(0, "closed");
    RunLoop::current().drain();
    EXPECT_FALSE(reading->isHighlighted());
    EXPECT_EQ(delegate->calls, (Strings{"update", "update", "open", "close"}));
    EXPECT_EQ(layout(), "0 children-display=submenu [1 label=CPU 7 %]");
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
    menu->addItem(MenuItem::separator());
    EXPECT_EQ(next(), "LayoutUpdated");
    const MenuRef other = Menu::create();
    item->setMenu(other);
    EXPECT_EQ(next(), "LayoutUpdated");
    EXPECT_EQ(layout(), "0 children-display=submenu");
    other->addItem(menu->items().front());
    EXPECT_EQ(other->items(), std::vector{reading});
    EXPECT_EQ(menu->items().size(), 1U);

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
    } cases[] = {{[&] { aboutToShow(0); }, 0}, {[&] { send(0, "opened"); }, 0}, {[&] { send(0, "closed"); }, 1}};
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

TEST_F(MenuTest, IsReadAndClickedByAProgramOfAnotherMaker)
{
    add("One", 7, menu)->setState(MenuItemState::on);
    const auto called = [&](std::vector<std::string> arguments) {
        std::vector<std::string> command{
            "busctl",   "--address=" + bus.address(), "--json=short", "call", "--", host->item,
            "/MenuBar", "com.canonical.dbusmenu"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        Tests::ChildProcess program(command, {.streams = Tests::ChildStreams::outputAndErrors});
        EXPECT_TRUE(eventually([&] { return program.hasEnded(); }));
        return program.readAll();
    };
    const std::string text =
        R"-([0,{"children-display":{"type":"s","data":"submenu"}},[)-"
        R"-({"type":"(ia{sv}av)","data":[1,{"label":{"type":"s","data":"One"},)-"
        R"-("toggle-type":{"type":"s","data":"checkmark"},"toggle-state":{"type":"i","data":1}},[]]}]]]})-";
    const std::string answer = called({"GetLayout", "iias", "0", "-1", "0"});
    EXPECT_TRUE(answer.ends_with(text + '\n')) << answer;  // a revision's number stands before it
    EXPECT_EQ(called({"Event", "isvu", "1", "clicked", "s", "", "0"}), "");
    EXPECT_TRUE(eventually([&] { return target->tags == std::vector<long>{7}; }));
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
    EXPECT_EQ(layout(), "no answer");
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
    aboutToShow(0);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(layout(), "no answer");
}

TEST_F(MenuTest, MalformedCallsGetErrorsAndHarmNothing)
{
    add("One", 1, menu);
    for (const char* member :
         {"GetLayout", "GetGroupProperties", "GetProperty", "Event", "EventGroup", "AboutToShow"}) {
        EXPECT_FALSE(host->callMenu(member, "d", 1.5)) << member;
        EXPECT_NE(host->lastError.find("arguments"), std::string::npos) << member;
    }
    EXPECT_TRUE(host->callMenu("GetProperty", "is", 1, "nothing"));
    EXPECT_TRUE(host->callMenu("GetGroupProperties", "aias", 2, 1, 55, 1, "label"));
    EXPECT_TRUE(host->callMenu("AboutToShowGroup", "ai", 2, 0, 55));
    EXPECT_EQ(layout(), "0 children-display=submenu [1 label=One]");
}

TEST_F(MenuTest, ViewsShowAsPicturesThatFollowTheHighlight)
{
    const auto view = std::make_shared<VisualEffectView>(Rect::of(0, 0, 40, 20));
    view->setState(VisualEffectView::State::active);
    const auto line = add("hidden title", 1, menu);
    line->setView(view);
    EXPECT_EQ(layout(), "0 children-display=submenu [1 label= icon-data]");
    EXPECT_EQ(view->enclosingMenuItem(), line);
    host->signals.clear();
    send(1, "hovered");
    EXPECT_TRUE(eventually([&] { return !host->signals.empty(); }));
    const auto other = MenuItem::create("");
    other->setView(line->view());
    EXPECT_EQ(line->view(), nullptr);
    EXPECT_EQ(view->enclosingMenuItem(), other);
    other->setView(nullptr);
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
