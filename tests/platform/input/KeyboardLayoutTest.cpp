#include <gtest/gtest.h>

#include "platform/input/internal/X11KeyboardLayout.h"
#include "tests/support/Display.h"
#include "tests/support/Keyboard.h"

namespace {

using namespace Platform;
using Tests::runOnDisplay;

TEST(KeyboardLayout, AnsiTableTellsLettersFromKeysThatWriteNothingAndFromNoKeys)
{
    const AnsiKeyboardLayout layout;
    EXPECT_EQ(layout.character(50), "`");
    EXPECT_EQ(layout.character(122), "");
    EXPECT_EQ(layout.character(200), std::nullopt);
}

TEST(KeyboardLayout, FollowsTheActiveLayoutOfTheDisplay)
{
    const Tests::Display display;
    const auto layout = X11KeyboardLayout::open();
    ASSERT_TRUE(layout);
    const struct {
        const char* name;
        std::uint16_t keyCode;
        std::optional<std::string> text;
    } cases[] = {
        {"us", 0, "a"},  {"us", 16, "y"},        {"us", 41, ";"},   {"us", 122, ""},   {"us", 63, std::nullopt},
        {"de", 16, "z"}, {"de", 33, "ü"},        {"de", 24, "´"},   {"fr", 0, "q"},    {"fr", 18, "&"},
        {"fr", 33, "^"}, {"us(dvorak)", 1, "o"}, {"us,ru", 0, "a"}, {"ru,fr", 0, "q"}, {"ru", 0, "a"},
    };
    for (const auto& one : cases) {
        ASSERT_EQ(runOnDisplay({"setxkbmap", one.name}), 0);
        EXPECT_EQ(layout->character(one.keyCode), one.text) << one.name << ' ' << one.keyCode;
    }
}

TEST(KeyboardLayout, WritesUsAnsiOnceTheDisplayIsGone)
{
    std::unique_ptr<X11KeyboardLayout> layout;
    {
        const Tests::Display display;
        layout = X11KeyboardLayout::open();
        ASSERT_EQ(runOnDisplay({"setxkbmap", "fr"}), 0);
        EXPECT_EQ(layout->character(0), "q");
    }
    EXPECT_EQ(layout->character(0), "a");
    EXPECT_EQ(X11KeyboardLayout::open(), nullptr);
}

}  // namespace
