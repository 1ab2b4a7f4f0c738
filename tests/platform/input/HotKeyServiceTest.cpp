#include <gtest/gtest.h>

#include "platform/input/InProcessHotKeyService.h"
#include "platform/input/ModifierFlags.h"
#include "platform/input/internal/X11HotKeyService.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"
#include "tests/support/Keyboard.h"

namespace {

using namespace Platform;
using namespace HotKeyMask;
using Strings = std::vector<std::string>;

// A service with somebody who types; so is the next.
class InProcessTypist {
public:
    HotKeyService& service() { return service_; }
    void hold(std::uint32_t keyCode, std::uint32_t modifiers) { service_.press(keyCode, modifiers); }
    void letGo(std::uint32_t keyCode, std::uint32_t) { service_.release(keyCode); }

private:
    InProcessHotKeyService service_;
};

class X11Typist {
public:
    HotKeyService& service() { return *service_; }
    void hold(std::uint32_t keyCode, std::uint32_t modifiers) { Tests::pressKeys(keys(keyCode, modifiers)); }
    // Modifiers first, as fingers do.
    void letGo(std::uint32_t keyCode, std::uint32_t modifiers) { Tests::releaseKeys(keys(keyCode, modifiers)); }

private:
    static Strings keys(std::uint32_t keyCode, std::uint32_t modifiers)
    {
        Strings keys;
        if (modifiers & control) keys.push_back("Control_L");
        if (modifiers & option) keys.push_back("Alt_L");
        if (modifiers & shift) keys.push_back("Shift_L");
        if (modifiers & command) keys.push_back("Super_L");
        keys.push_back(keyCode == 0 ? "38" : keyCode == 11 ? "56" : "F5");
        return keys;
    }

    Tests::Display display_;
    std::unique_ptr<X11HotKeyService> service_ = X11HotKeyService::open();
};

template <typename T>
class HotKeyServiceContract : public testing::Test {
protected:
    void SetUp() override
    {
        service().installEventHandler([this](const HotKeyEvent* event) {
            calls.push_back((event->kind == HotKeyEventKind::pressed ? "down " : "up ") + std::to_string(event->id.id));
            return HotKeyStatuses::noError;
        });
    }

    HotKeyService& service() { return typist.service(); }
    HotKeyRegistration add(std::uint32_t keyCode, std::uint32_t modifiers, std::uint32_t id)
    {
        return service().registerKey(keyCode, modifiers, {1, id});
    }
    void type(std::uint32_t keyCode, std::uint32_t modifiers)
    {
        typist.hold(keyCode, modifiers);
        typist.letGo(keyCode, modifiers);
    }
    bool heard(const Strings& expected)
    {
        Tests::eventually([&] { return calls.size() >= expected.size(); });
        RunLoop::current().drain();
        return calls == expected;
    }

    T typist;
    Strings calls;
};

using Typists = testing::Types<InProcessTypist, X11Typist>;
TYPED_TEST_SUITE(HotKeyServiceContract, Typists);

TYPED_TEST(HotKeyServiceContract, TellsPressAndReleaseOfExactlyTheCombinationInOrderOfRegistration)
{
    for (const std::uint32_t modifiers :
         {0u, command, command | shift, control | option, std::uint32_t{all}, command}) {
        this->calls.clear();
        const auto first = this->add(0, modifiers, 1);
        const auto second = this->add(0, modifiers | 0x400, 2);  // the lock's bit does not count
        const auto other = this->add(11, modifiers ^ shift, 3);
        ASSERT_TRUE(first.handle && second.handle && other.handle) << modifiers;

        this->type(11, modifiers);
        this->type(0, modifiers);
        EXPECT_TRUE(this->heard({"down 1", "down 2", "up 1", "up 2"}))
            << modifiers << testing::PrintToString(this->calls);
        for (const auto& one : {first, second, other}) {
            EXPECT_EQ(this->service().unregisterKey(*one.handle), HotKeyStatuses::noError);
            EXPECT_EQ(this->service().unregisterKey(*one.handle), HotKeyStatuses::hotKeyInvalid);
        }
    }
}

TYPED_TEST(HotKeyServiceContract, RefusesWhatNoKeyboardHasAndHandlesThatItDidNotGive)
{
    for (const std::uint32_t keyCode : {63u, 52u, 127u, 200u, 0xFFFFFFFFu}) {
        const auto answer = this->add(keyCode, command, 1);
        EXPECT_EQ(answer.status, HotKeyStatuses::hotKeyInvalid) << keyCode;
        EXPECT_FALSE(answer.handle) << keyCode;
    }
    EXPECT_EQ(this->service().unregisterKey(77), HotKeyStatuses::hotKeyInvalid);
}

TYPED_TEST(HotKeyServiceContract, HearsNothingAfterTheEndAndAHandlerMayEndItselfAndOthers)
{
    std::vector<HotKeyHandle> handles;
    this->service().installEventHandler([&](const HotKeyEvent* event) {
        if (event->id.id != 1) return HotKeyStatuses::eventNotHandled;
        for (const HotKeyHandle handle : handles) this->service().unregisterKey(handle);
        this->calls.push_back("ended");
        return HotKeyStatuses::noError;
    });
    ASSERT_TRUE(this->add(96, control, 3).handle);
    for (const std::uint32_t id : {1u, 2u}) handles.push_back(*this->add(0, control, id).handle);

    this->type(0, control);
    EXPECT_TRUE(this->heard({"ended"}));
    this->type(0, control);
    this->type(96, control);
    EXPECT_TRUE(this->heard({"ended", "down 3", "up 3"})) << testing::PrintToString(this->calls);
}

}  // namespace
