#include <gtest/gtest.h>

#include "examples/pellora/menubar/GraphPoints.h"
#include "examples/pellora/menubar/StatusBarDisplay.h"
#include "platform/ui/Image.h"
#include "tests/examples/pellora/FakeAutoStart.h"
#include "tests/examples/pellora/Machine.h"
#include "tests/support/BarWithoutDesktop.h"

namespace Pellora {
namespace {

TEST(GraphPoints, KeepWhatCanBeSeen)
{
    using Points = std::vector<Fennick::Point>;
    const std::pair<std::vector<Platform::Number>, Points> cases[] = {
        {{50}, {}},
        {{0, 0, 0, 0, 0}, {{0, 10}, {20, 10}}},
        {{0, 100, 0}, {{0, 10}, {10, 0}, {20, 10}}},
        {{50, 51, 50, 50, 50}, {{0, 5}, {20, 5}}},
    };
    for (const auto& [history, expected] : cases) EXPECT_EQ(graphPoints(history, 20, 10), expected);
}

// Without a session bus, as on a machine without a desktop.
struct StatusBarDisplayTest : testing::Test, Tests::BarWithoutDesktop {
    StatusBarDisplayTest()
    {
        machine.write({{"proc/stat", "cpu 0 0 0 0\n"},
                       {"proc/meminfo", "MemTotal: 8 kB\nMemAvailable: 4 kB\n"},
                       {"proc/loadavg", "1 2 3 1/1 1\n"}});
        Settings settings;
        settings.disk = "/no such disk";
        settings.hotkey.clear();
        monitor = std::make_unique<Monitor>(settings);
        display = std::make_shared<StatusBarDisplay>(*monitor, autoStart, settings);
        monitor->addListener(display);
    }

    void refresh(const std::string& stat)
    {
        machine.write({{"proc/stat", stat}});
        monitor->refresh();
    }
    Platform::Menu& menu() const { return *display->controller()->menu(); }
    std::vector<std::string> lines() const
    {
        std::vector<std::string> titles;
        for (const auto& item : menu().items()) titles.push_back(item->isSeparator() ? "---" : item->title());
        return titles;
    }
    // Whether the item, as drawn for a look, holds light, and dark, pixels.
    std::pair<bool, bool> lightAndDark(const std::string& look) const
    {
        const auto& button = display->controller()->item()->item()->button();
        button->setAppearance(Platform::Appearance(look));
        button->setFrame(Platform::Rect{{}, button->intrinsicContentSize()});
        const auto bitmap = button->rendered()->bitmap();
        std::pair<bool, bool> found;
        for (std::size_t at = 0; at < bitmap->pixelCount(); ++at) {
            const std::uint32_t pixel = bitmap->pixels()[at];
            if (pixel >> 24 >= 200) ((pixel & 0xff) > 127 ? found.first : found.second) = true;
        }
        return found;
    }

    Tests::Machine machine;
    Tests::FakeAutoStart autoStart;
    std::unique_ptr<Monitor> monitor;
    std::shared_ptr<StatusBarDisplay> display;
};

TEST_F(StatusBarDisplayTest, ReadingsStandInTheMenuAndChangeWhileItIsOpen)
{
    const std::string still = "▁▁▁▁▁▁▁▁▁▁▁";
    refresh("cpu 1 0 0 1\n");
    const std::vector<std::string> first{still + "▅  Processor: 50 %",
                                         still + "▅  Memory: 50 %",
                                         still + "▅  Memory used: 4 KB",
                                         "Memory installed: 8 KB",
                                         still + "█  Load, 1 min: 1.00",
                                         still + "█  Load, 5 min: 2.00",
                                         still + "█  Load, 15 min: 3.00",
                                         "---",
                                         "Start at Login",
                                         "Quit"};
    EXPECT_EQ(lines(), first);

    refresh("cpu 2 0 0 1\ncpu0 1 0 0 1\n");
    EXPECT_EQ(lines(), first) << "a closed menu costs nothing";
    menu().needsUpdate();
    menu().opened();
    EXPECT_EQ(lines()[0].substr(38), "Processor: 100 %");
    EXPECT_EQ(lines()[1], "Core 0: -") << "in its place, though it came later";
    refresh("cpu 2 0 0 2\ncpu0 1 0 0 2\n");
    EXPECT_EQ(lines()[0].substr(38), "Processor: 0 %");
    menu().closed();
    refresh("cpu 3 0 0 3\n");
    EXPECT_EQ(lines()[0].substr(38), "Processor: 0 %");
}

TEST_F(StatusBarDisplayTest, TheTickTellsWhatBecameOfStartingAtLogin)
{
    const auto item = menu().itemWithTitle("Start at Login");
    using enum Platform::MenuItemState;
    for (const auto expected : {on, off, off}) {
        item->performAction();
        EXPECT_EQ(item->state(), expected);
        autoStart.refuses = expected == off;
    }
}

TEST_F(StatusBarDisplayTest, TheGraphFollowsTheBarsLookUntilItLeavesTheBar)
{
    refresh("cpu 1 0 0 1\n");
    EXPECT_EQ(lightAndDark(Platform::Appearance::aqua), std::pair(false, true));
    EXPECT_EQ(lightAndDark(Platform::Appearance::darkAqua), std::pair(true, false));

    EXPECT_EQ(Platform::StatusBar::system().items().size(), 1u);
    display = nullptr;
    EXPECT_TRUE(Platform::StatusBar::system().items().empty());
    monitor->refresh();
}

}  // namespace
}  // namespace Pellora
