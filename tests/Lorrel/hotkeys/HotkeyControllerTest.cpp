#include <gtest/gtest.h>

#include "Lorrel/hotkeys/CarbonHotkeyController.h"
#include "Lorrel/hotkeys/HotkeyController.h"
#include "platform/input/InProcessHotKeyService.h"
#include "tests/fakes/Replaced.h"

namespace {

using namespace Lorrel;
using Calls = std::vector<std::string>;
namespace Statuses = Platform::HotKeyStatuses;

class CallLog final : public HotkeyDelegate {
public:
    void hotkeyPressed(const Hotkey& hotkey) override { calls.push_back("delegate " + hotkey.id().value_or("-")); }
    Calls calls;
};

class HotkeyControllerTest : public testing::Test {
protected:
    HotkeyControllerTest() { controller->setDelegate(delegate); }

    void typeShortcut()
    {
        keyboard->press(0, 0x100);
        keyboard->release(0);
    }
    std::function<void()> logs(std::string text)
    {
        return [this, text] { delegate->calls.push_back(text); };
    }
    Calls heard() { return std::exchange(delegate->calls, {}); }

    Platform::Shared<CarbonHotkeyController::Table>::Override freshTable;
    Tests::Replaced<Platform::HotKeyService, Platform::InProcessHotKeyService> keyboard;
    std::shared_ptr<CallLog> delegate = std::make_shared<CallLog>();
    std::shared_ptr<HotkeyController> controller = HotkeyController::create();
    const Hotkey shortcut{"open", Key::a, ModifierFlags::command};
};

TEST_F(HotkeyControllerTest, PressReachesTheDelegateThenTheHandlersInOrderAndReleaseOnlyTheOthers)
{
    controller->keyDownHandlers()[shortcut] = {logs("first"), logs("second")};
    controller->keyUpHandlers()[shortcut] = {logs("up")};
    controller->register_(shortcut);
    controller->register_(shortcut);

    EXPECT_EQ(CarbonHotkeyController::hotKeys().size(), 1U);
    typeShortcut();
    EXPECT_EQ(heard(), (Calls{"delegate open", "first", "second", "up"}));
}

TEST_F(HotkeyControllerTest, NumbersRunOnOverRefusalsWhichStaySilent)
{
    keyboard->occupy(11, 0x100);
    const Hotkey taken{"taken", Key::b, ModifierFlags::command};
    for (const Hotkey& one : {taken, Hotkey(std::int64_t{1} << 32, 0x100), Hotkey(-1, 0)}) controller->register_(one);
    EXPECT_TRUE(CarbonHotkeyController::hotKeys().empty());
    EXPECT_FALSE(CarbonHotkeyController::eventHandler());
    EXPECT_EQ(controller->registeredShortcuts().size(), 3U);
    controller->register_(shortcut);
    controller->register_({"other", Key::a, ModifierFlags::command});

    EXPECT_EQ(CarbonHotkeyController::hotKeyId(), 5);
    typeShortcut();
    EXPECT_EQ(heard(), (Calls{"delegate open", "delegate other"}));
    EXPECT_EQ(CarbonHotkeyController::hotKeys().at(4)->shortcut(), shortcut);
}

TEST_F(HotkeyControllerTest, DeclinesEventsThatAreNotItsOwn)
{
    controller->register_(shortcut);
    const auto signature = CarbonHotkeyController::signature;
    const std::pair<Platform::HotKeyEvent, Platform::HotKeyStatus> cases[] = {
        {{0, {signature, 1}, 5}, 0},     {{0, {signature, 1}, 6}, 0}, {{0, {signature, 1}, 7}, -9874},
        {{0, {signature, 2}, 5}, -9874}, {{0, {1, 1}, 5}, -9874},     {{Statuses::eventParameterMissing, {}, 5}, -9870},
    };
    EXPECT_EQ(CarbonHotkeyController::handleEvent(nullptr), -9874);
    for (const auto& [event, status] : cases) EXPECT_EQ(CarbonHotkeyController::handleEvent(&event), status);
    EXPECT_EQ(heard(), (Calls{"delegate open"}));
    controller->unregister(shortcut);
    EXPECT_EQ(CarbonHotkeyController::handleEvent(&cases[0].first), -9874);
}

TEST_F(HotkeyControllerTest, UnregisteringAllIsGlobalAndHandlersStayUnlessRemoved)
{
    const auto neighbour = HotkeyController::create();
    const Hotkey theirs{"theirs", Key::b, ModifierFlags::option};
    neighbour->register_(theirs);
    controller->keyUpHandlers()[shortcut] = {logs("up")};
    controller->register_(shortcut);

    controller->unregister(theirs);  // equal values of whoever registered them
    EXPECT_EQ(CarbonHotkeyController::hotKeys().size(), 1U);
    neighbour->unregisterAll();
    EXPECT_TRUE(CarbonHotkeyController::hotKeys().empty());
    EXPECT_TRUE(neighbour->registeredShortcuts().empty());
    controller->register_(shortcut);
    EXPECT_TRUE(CarbonHotkeyController::hotKeys().empty()) << "it still counts as registered";

    controller->unregisterAll();
    controller->register_(shortcut);
    typeShortcut();
    EXPECT_EQ(heard(), (Calls{"delegate open", "up"}));

    controller->removeAllHandlers();
    EXPECT_EQ(controller->registeredShortcuts().size(), 1U);
    EXPECT_TRUE(controller->keyUpHandlers().empty());
    EXPECT_TRUE(CarbonHotkeyController::hotKeys().empty());
}

TEST_F(HotkeyControllerTest, LivesByItsRegistrationsAndMayEndThemAndItselfInAHandler)
{
    std::weak_ptr<HotkeyController> weak = controller;
    controller->keyDownHandlers()[shortcut] = {
        [&] { weak.lock()->keyDownHandlers().clear(); },
        [&] { weak.lock()->unregister(*weak.lock()->registeredShortcuts().begin()); }, logs("last")};
    controller->register_(shortcut);
    controller = nullptr;
    ASSERT_FALSE(weak.expired());

    typeShortcut();
    EXPECT_EQ(heard(), (Calls{"delegate open", "last"}));
    EXPECT_TRUE(weak.expired());
    typeShortcut();
    EXPECT_EQ(heard(), Calls{});
}

}  // namespace
