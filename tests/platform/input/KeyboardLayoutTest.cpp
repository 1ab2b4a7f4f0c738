#include <gtest/gtest.h>

#include "platform/input/internal/X11KeyboardLayout.h"
#include "tests/support/Display.h"
#include "tests/support/Keyboard.h"

namespace {

using namespace Platform;

TEST(KeyboardLayout, FollowsTheActiveLayoutOfTheDisplayAndIsAnsiOnceThatIsGone)
{
    std::optional<Tests::Display> display{std::in_place};
    const auto layout = X11KeyboardLayout::open();
    ASSERT_TRUE(layout);
    const std::tuple<const char*, std::uint16_t, std::optional<std::string>> cases[] = {
        {"us", 0, "a"},  {"us", 16, "y"},        {"us", 41, ";"},   {"us", 122, ""}, {"us", 63, std::nullopt},
        {"de", 16, "z"}, {"de", 33, "ü"},        {"de", 24, "´"},   {"fr", 0, "q"},  {"fr", 18, "&"},
        {"fr", 33, "^"}, {"us(dvorak)", 1, "o"}, {"us,ru", 0, "a"}, {"ru", 0, "a"},  {"ru,fr", 0, "q"}};
    for (const auto& [name, keyCode, text] : cases) {
        ASSERT_EQ(Tests::runOnDisplay({"setxkbmap", name}), 0);
        EXPECT_EQ(layout->character(keyCode), text) << name << ' ' << keyCode;
    }
    display.reset();
    const std::tuple<std::uint16_t, std::optional<std::string>> ansi[] = {
        {0, "a"}, {50, "`"}, {122, ""}, {200, std::nullopt}};
    for (const auto& [keyCode, text] : ansi) EXPECT_EQ(layout->character(keyCode), text) << keyCode;
    EXPECT_EQ(X11KeyboardLayout::open(), nullptr);
}

}  // namespace
