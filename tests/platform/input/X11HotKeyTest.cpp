#include <optional>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "platform/input/ModifierFlags.h"
#include "platform/input/internal/X11HotKeyService.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

using namespace Platform;
using namespace HotKeyMask;
using Tests::eventually;
using Tests::pressKeys;
using Tests::releaseKeys;
using Tests::runOnDisplay;

constexpr xcb_keycode_t positionOfA = 38;

// Another program of the display.
class OtherClient {
public:
    OtherClient() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~OtherClient() { xcb_disconnect(connection_); }

    bool grab(xcb_keycode_t key, std::uint16_t modifiers)
    {
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const auto cookie =
            xcb_grab_key_checked(connection_, false, root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const XcbReply<xcb_generic_error_t> refusal(xcb_request_check(connection_, cookie));
        return !refusal;
    }

private:
    xcb_connection_t* connection_;
};

class X11HotKey : public testing::Test {
protected:
    X11HotKey()
    {
        service->installEventHandler([this](const HotKeyEvent* event) {
            (event->kind == HotKeyEventKind::pressed ? pressed : released)++;
            lastId = event->id.id;
            return HotKeyStatuses::noError;
        });
    }

    bool typeOnce(const std::vector<std::string>& keys)
    {
        const int before = released;
        pressKeys(keys);
        releaseKeys(keys);
        return eventually([&] { return released > before; }) && pressed == released;
    }

    // The display's keyboard, changed by a script for sed.
    static bool editMap(const std::string& script)
    {
        const Tests::TemporaryDirectory folder;
        const std::string file = folder / "map.xkb";
        return runOnDisplay({"sh", "-c",
                             "xkbcomp $DISPLAY - 2>/dev/null | sed '" + script + "' >" + file + " && xkbcomp " + file +
                                 " $DISPLAY 2>/dev/null"}) == 0;
    }

    std::optional<Tests::Display> display{std::in_place};
    std::unique_ptr<X11HotKeyService> service = X11HotKeyService::open();
    int pressed = 0;
    int released = 0;
    std::uint32_t lastId = 0;
};

TEST_F(X11HotKey, GoesByPositionUnderEveryLayoutAndLock)
{
    const struct {
        const char* layout;
        const char* symbolAtPositionOfA;
    } layouts[] = {{"us", "a"}, {"fr", "q"}, {"de", "a"}, {"us(dvorak)", "a"}};
    ASSERT_TRUE(service->registerKey(0, command | shift, {1, 5}).handle);

    for (const auto& layout : layouts) {
        ASSERT_EQ(runOnDisplay({"setxkbmap", layout.layout}), 0);
        for (const char* lock : {"Num_Lock", "Caps_Lock", "Num_Lock", "Caps_Lock"}) {
            ASSERT_EQ(runOnDisplay({"xdotool", "key", lock}), 0);
            EXPECT_TRUE(typeOnce({"Shift_L", "Super_L", layout.symbolAtPositionOfA})) << layout.layout << lock;
        }
    }
}

TEST_F(X11HotKey, IsRefusedWhatAnotherProgramHoldsUnderAnyLockAndThenKeepsNothing)
{
    OtherClient other;
    ASSERT_TRUE(other.grab(positionOfA, XCB_MOD_MASK_4 | XCB_MOD_MASK_LOCK));

    const auto answer = service->registerKey(0, command, {1, 1});
    EXPECT_EQ(answer.status, HotKeyStatuses::hotKeyExists);
    EXPECT_FALSE(answer.handle);
    EXPECT_TRUE(other.grab(positionOfA, XCB_MOD_MASK_4));

    ASSERT_TRUE(service->registerKey(0, control, {1, 2}).handle);
    EXPECT_FALSE(other.grab(positionOfA, XCB_MOD_MASK_CONTROL));
}

TEST_F(X11HotKey, HeldDownIsOnePressAlsoWhenItsPositionMovesMeanwhile)
{
    ASSERT_TRUE(service->registerKey(0, 0, {1, 1}).handle);
    ASSERT_TRUE(typeOnce({"38"}));
    pressKeys({"38"});
    pressKeys({"38"});  // the server takes it for a repeat
    ASSERT_TRUE(eventually([&] { return pressed == 2; }));

    ASSERT_TRUE(editMap("s/<AC01> = 38/<AC01> = 39/; s/<AC02> = 39/<AC02> = 38/"));
    OtherClient other;
    EXPECT_TRUE(eventually([&] { return other.grab(positionOfA, 0); })) << "the old position is free";

    releaseKeys({"38"});
    EXPECT_TRUE(eventually([&] { return released == 2; }));
    EXPECT_TRUE(typeOnce({"39"}));
}

TEST_F(X11HotKey, EarlierOneKeepsWhatTheKeyboardCannotTellApart)
{
    const auto first = service->registerKey(0, option, {1, 1});
    const auto second = service->registerKey(0, command, {1, 2});
    ASSERT_TRUE(first.handle && second.handle);
    ASSERT_TRUE(editMap("s/modifier_map Mod4/modifier_map Mod1/"));
    OtherClient other;
    ASSERT_TRUE(eventually([&] { return other.grab(positionOfA, XCB_MOD_MASK_4); })) << "the old modifier is free";

    EXPECT_EQ(service->registerKey(0, option | command, {1, 3}).status, HotKeyStatuses::hotKeyExists);
    EXPECT_TRUE(typeOnce({"Super_L", "38"}));
    EXPECT_EQ(lastId, 1U);
    service->unregisterKey(*first.handle);
    EXPECT_TRUE(typeOnce({"Alt_L", "38"}));
    EXPECT_EQ(lastId, 2U);
    EXPECT_EQ(service->registerKey(0, option, {1, 1}).status, HotKeyStatuses::hotKeyExists);
}

TEST_F(X11HotKey, IsRefusedWhereItsModifierCannotBeToldFromNumLock)
{
    ASSERT_TRUE(service->registerKey(0, command, {1, 1}).handle);
    ASSERT_TRUE(editMap("s/modifier_map Mod4/modifier_map Mod2/"));
    EXPECT_TRUE(eventually([&] {
        const auto again = service->registerKey(11, command, {1, 2});
        if (again.handle) service->unregisterKey(*again.handle);
        return again.status == HotKeyStatuses::hotKeyInvalid;
    }));
}

TEST_F(X11HotKey, BearsTwoHundredRegistrations)
{
    const std::uint32_t masks[] = {control, option, command, control | option, control | command};
    std::vector<HotKeyHandle> handles;
    for (std::uint32_t keyCode = 0; keyCode < 43; ++keyCode) {
        for (const std::uint32_t mask : masks) {
            const auto answer = service->registerKey(keyCode, mask, {1, keyCode * 100 + mask});
            if (answer.handle) handles.push_back(*answer.handle);
        }
    }
    ASSERT_EQ(handles.size(), 43U * 5);
    EXPECT_TRUE(typeOnce({"Control_L", "Super_L", "56"}));
    EXPECT_EQ(lastId, 11 * 100 + (control | command));
    for (const HotKeyHandle handle : handles) EXPECT_EQ(service->unregisterKey(handle), HotKeyStatuses::noError);
    EXPECT_TRUE(OtherClient().grab(56, XCB_MOD_MASK_4 | XCB_MOD_MASK_CONTROL));
}

TEST_F(X11HotKey, StopsWithTheServerWhileTheProgramLives)
{
    Tests::ReplacedLog log;
    const auto before = service->registerKey(0, command, {1, 1});
    ASSERT_TRUE(before.handle);
    display.reset();
    EXPECT_TRUE(eventually([&] { return log->count("X server is gone") == 1; }));
    EXPECT_EQ(service->registerKey(11, command, {1, 2}).status, HotKeyStatuses::unsupported);
    EXPECT_EQ(service->unregisterKey(*before.handle), HotKeyStatuses::unsupported);
    EXPECT_EQ(X11HotKeyService::open(), nullptr);
}

TEST_F(X11HotKey, WaitsOnceForAServerThatHangsAndGoesOnWithIt)
{
    const auto before = service->registerKey(0, command, {1, 1});
    ASSERT_TRUE(before.handle);
    display->freeze();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(service->registerKey(11, command, {1, 2}).status, HotKeyStatuses::unsupported);
    for (int call = 0; call < 50; ++call) service->registerKey(11, command, {1, 2});
    EXPECT_EQ(service->unregisterKey(*before.handle), HotKeyStatuses::noError);
    EXPECT_EQ(X11HotKeyService::open(), nullptr);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));

    display->thaw();
    EXPECT_TRUE(eventually([&] { return service->registerKey(11, command, {1, 3}).handle.has_value(); }));
    EXPECT_TRUE(OtherClient().grab(positionOfA, XCB_MOD_MASK_4)) << "let go while the server hung";
    EXPECT_TRUE(typeOnce({"Super_L", "56"}));
    EXPECT_EQ(lastId, 3U);
}

TEST_F(X11HotKey, MayBeEndedByItsOwnHandler)
{
    ASSERT_TRUE(service->registerKey(0, 0, {1, 1}).handle);
    ASSERT_TRUE(service->registerKey(0, 0, {1, 2}).handle);
    bool isEnded = false;
    service->installEventHandler([&](const HotKeyEvent*) {
        service = nullptr;
        isEnded = true;
        return HotKeyStatuses::noError;
    });
    pressKeys({"38"});
    EXPECT_TRUE(eventually([&] { return isEnded; }));
    releaseKeys({"38"});
    RunLoop::current().drain();
}

}  // namespace
