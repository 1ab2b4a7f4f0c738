#include <unordered_set>

#include <gtest/gtest.h>

#include "Lorrel/hotkeys/Hotkey.h"
#include "platform/input/KeyboardLayout.h"
#include "tests/fakes/Replaced.h"

namespace {

using namespace Lorrel;

// US, but for a key of an odd layout.
class OddLayout final : public Platform::KeyboardLayout {
public:
    std::optional<std::string> character(std::uint16_t keyCode) const override
    {
        if (keyCode == 10) return "ß";
        if (keyCode == 52) return "ij";
        return keyCode < 128 ? ansi_.character(keyCode) : std::nullopt;
    }

private:
    Platform::AnsiKeyboardLayout ansi_;
};

class HotkeyTest : public testing::Test {
protected:
    Tests::Replaced<Platform::KeyboardLayout, OddLayout> layout;
};

TEST_F(HotkeyTest, WritesShortcutsAndMenuEquivalents)
{
    const struct {
        std::int64_t keyCode, mask;
        const char *description, *keyEquivalent;
    } cases[] = {
        {0, 0x300, "⇧⌘A", "a"},  {122, 0, "F1", "\uF704"}, {90, 0x1000, "⌃F20", "\uF717"}, {49, 0x800, "⌥⎵", "⎵"},
        {114, 0x100, "⌘?⃝", "?⃝"}, {126, 0, "↑", "↑"},       {0, 0x1F00, "⌃⌥⇧⌘A", "a"},      {200, 0x100, "⌘\uFFFD", ""},
        {-1, 0, "\uFFFD", ""},   {65536, 0, "\uFFFD", ""}, {10, 0x200, "⇧SS", "ß"},        {52, 0, "IJ", ""},
        {56, 0x100, "⌘", ""},    {36, -1, "⌃⌥⇧⌘↩", "↩"},
    };
    for (const auto& one : cases) {
        const Hotkey hotkey(one.keyCode, one.mask);
        EXPECT_EQ(hotkey.description(), one.description) << one.keyCode;
        EXPECT_EQ(hotkey.keyEquivalent(), one.keyEquivalent) << one.keyCode;
        EXPECT_EQ(hotkey.carbonModifiers(), one.mask & 0x1B00);
    }
}

TEST_F(HotkeyTest, ConvertsTheFourModifiersAndDropsAllOthers)
{
    for (std::uint32_t bits = 0; bits < 16; ++bits) {
        const ModifierFlags flags(std::uint64_t{bits} << 17);
        const std::int64_t mask =
            (bits & 1 ? 0x200 : 0) + (bits & 2 ? 0x1000 : 0) + (bits & 4 ? 0x800 : 0) + (bits & 8 ? 0x100 : 0);
        EXPECT_EQ(carbonFlags(flags), mask);
        EXPECT_EQ(carbonFlags(flags | ModifierFlags::capsLock | ModifierFlags::function), mask);
        EXPECT_EQ(modifierFlags(mask | 0x400 | 0xE000), flags);
        EXPECT_EQ(Hotkey("x", Key::a, flags).modifiers(), flags);
    }
}

TEST_F(HotkeyTest, IsOneValueWithItsLabelAndBothTables)
{
    const Hotkey plain(std::nullopt, Key::a, ModifierFlags::command);
    std::vector<Hotkey> others(5, plain);
    others[0] = Hotkey("a", Key::a, ModifierFlags::command);
    others[1] = Hotkey(std::nullopt, Key::b, ModifierFlags::command);
    others[2] = Hotkey(std::nullopt, Key::a, ModifierFlags::shift);
    others[3].keyToCharacterMapping()[Key::a] = "Anfang";
    others[4].keyToKeyEquivalentString()[Key::a] = "x";

    EXPECT_EQ(others[3].description(), "⌘ANFANG");
    EXPECT_EQ(others[3].keyEquivalent(), "");
    std::unordered_set<Hotkey> all(others.begin(), others.end());
    all.insert({plain, Hotkey(0, 0x100)});
    EXPECT_EQ(all.size(), 6U);
}

}  // namespace
