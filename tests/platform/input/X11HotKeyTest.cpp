#include <optional>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "platform/input/ModifierFlags.h"
#include "platform/input/internal/X11HotKeyService.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"

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

    std::optional<Tests::Display> display{std::in_place};
    std::unique_ptr<X11HotKeyService> service = X11HotKeyService::open();
    int pressed = 0;
    int released = 0;
};

TEST_F(X11HotKey, GoesByPositionUnderEveryLayoutAndLock)
{
    ASSERT_TRUE(service->registerKey(0, command | shift, {1, 5}).handle);
    for (const auto& [layout, symbolAtPositionOfA] : {std::pair("us", "a"), {"fr", "q"}, {"us(dvorak)", "a"}}) {
        ASSERT_EQ(runOnDisplay({"setxkbmap", layout}), 0);
        for (const char* lock : {"Num_Lock", "Caps_Lock", "Num_Lock", "Caps_Lock"}) {
            ASSERT_EQ(runOnDisplay({"xdotool", "key", lock}), 0);
            EXPECT_TRUE(typeOnce({"Shift_L", "Super_L", symbolAtPositionOfA})) << layout << lock;
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

TEST_F(X11HotKey, HeldDownIsOnePress)
{
    ASSERT_TRUE(service->registerKey(0, 0, {1, 1}).handle);
    pressKeys({"38"});
    pressKeys({"38"});  // the server takes it for a repeat
    EXPECT_TRUE(typeOnce({"38"}));
    EXPECT_EQ(pressed, 1);
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
    const auto late = X11HotKeyService::open();
    ASSERT_TRUE(late);
    EXPECT_EQ(late->registerKey(12, command, {1, 4}).status, HotKeyStatuses::unsupported);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));

    display->thaw();
    EXPECT_TRUE(eventually([&] { return service->registerKey(11, command, {1, 3}).handle.has_value(); }));
    EXPECT_TRUE(OtherClient().grab(positionOfA, XCB_MOD_MASK_4)) << "let go while the server hung";
    EXPECT_TRUE(typeOnce({"Super_L", "56"}));
    EXPECT_TRUE(eventually([&] { return late->registerKey(12, command, {1, 4}).handle.has_value(); }));
    EXPECT_FALSE(OtherClient().grab(24, XCB_MOD_MASK_4));  // of the position 12
    ASSERT_EQ(runOnDisplay({"setxkbmap", "de"}), 0);       // is heard of
    display->freeze();
    service->registerKey(13, command, {1, 5});
    display->thaw();
    EXPECT_TRUE(eventually([&] { return service->registerKey(13, command, {1, 5}).handle.has_value(); }));
    EXPECT_TRUE(typeOnce({"Super_L", "56"}));
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
