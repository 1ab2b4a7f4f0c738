#include <filesystem>

#include <gtest/gtest.h>
#include <malloc.h>

#include "examples/pellora/MainAppDelegate.h"
#include "platform/runtime/RunLoop.h"
#include "tests/examples/pellora/FakeAutoStart.h"
#include "tests/examples/pellora/Machine.h"
#include "tests/fakes/FakeUserNotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/BarWithoutDesktop.h"
#include "tests/support/OpenDescriptors.h"
#include "tests/support/Torture.h"

namespace Pellora {
namespace {

constexpr int ticksAnHour = 1800;
constexpr int ticksAChange = 10;
constexpr int ticksOpen = 300;  // an hour has the menu open for so many
constexpr int savesAnHour = 8;  // three settings, twice; those that come together are heard of once

struct Soak : testing::Test, Tests::BarWithoutDesktop {
    Soak()
    {
        machine.write({{"proc/meminfo", "MemTotal: 4096 kB\nMemAvailable: 1024 kB\n"},
                       {"proc/loadavg", "9 9 9 1/1 1\n"},
                       {"proc/net/dev", "eth0: 1 0 0 0 0 0 0 0 1 0\n"},
                       {"sys/class/thermal/thermal_zone0/temp", "50000\n"},
                       {"sys/class/power_supply/BAT0/type", "Battery\n"},
                       {"sys/class/power_supply/BAT0/capacity", "50\n"}});
        changeReadings();
        settings.disk = machine.folder.path();
        settings.applications = {"com.example.a"};
        settings.limits = {*limitFrom("load.1>5")};
    }

    // The processor has been busy; the load is high, then low, and so on.
    void changeReadings()
    {
        const std::string busy = std::to_string(++changes);
        machine.write({{"proc/stat", "cpu " + busy + " 0 0 9\ncpu0 " + busy + " 0 0 9\n"},
                       {"proc/loadavg", changes % 2 == 0 ? "9 9 9 1/1 1\n" : "1 1 1 1/1 1\n"}});
    }
    void passTicks(int count)
    {
        for (int tick = 0; tick < count; ++tick) {
            if (tick % ticksAChange == 0) changeReadings();
            clock->advance(2);
            dispatched += Platform::RunLoop::main().drain();
            warned += std::exchange(desktop->shown, {}).size();
        }
    }
    // A host shows the item at each change, and its menu for a while; another
    // process saves settings that name other subjects, and takes them back.
    void passHourOfUse()
    {
        const auto item = Platform::StatusBar::system().items().front();
        item->menu()->needsUpdate();
        item->menu()->opened();
        for (int tick = 0; tick < ticksOpen; tick += ticksAChange) {
            passTicks(ticksAChange);
            item->button()->setFrame(Platform::Rect{{}, item->button()->intrinsicContentSize()});
            EXPECT_FALSE(item->button()->rendered()->bitmap()->isEmpty());
        }
        item->menu()->closed();
        const std::size_t lines = item->menu()->items().size();
        Settings other = settings;
        other.applications = {"com.example.a", "com.example.b"};
        other.log = machine.folder / "log";
        other.limits.clear();
        for (const auto& saved : {other, settings}) {
            saveSettings(saved, *keptSettings());
            passTicks(ticksAChange);
            item->menu()->needsUpdate();
            EXPECT_EQ(item->menu()->items().size(), lines + (saved == other ? 2 : 0)) << "\"b\" and the log";
        }
        passTicks(ticksAnHour - ticksOpen - 2 * ticksAChange);
    }

    Tests::Machine machine;
    Tests::ReplacedClock clock;
    Tests::ReplacedWorkspace workspace;
    Tests::ReplacedUserNotificationCenter desktop;
    Settings settings;
    int changes = 0;
    std::size_t dispatched = 0;
    std::size_t warned = 0;
};

TEST_F(Soak, HoursTakeNoMoreThanOneWakeUpATickAndNoMemory)
{
    saveSettings(settings, *keptSettings());
    MainAppDelegate application(std::make_unique<Tests::FakeAutoStart>(), [] { return loadSettings(*keptSettings()); });
    application.applicationDidFinishLaunching();
    passHourOfUse();  // until every store and queue has the memory that it keeps
    passHourOfUse();
    const auto bytes = mallinfo2().uordblks;
    const long descriptors = Tests::openDescriptors();
    dispatched = warned = 0;
    const int hours = static_cast<int>(Tests::atLength("hours", 2));
    const int ticks = hours * ticksAnHour;
    for (int hour = 0; hour < hours; ++hour) passHourOfUse();

    const auto bytesNow = mallinfo2().uordblks;
    RecordProperty("bytes", static_cast<int>(bytesNow - bytes));
    EXPECT_LE(dispatched, static_cast<std::size_t>(ticks + hours * (ticksOpen + savesAnHour)))
        << "the timer's ticks, those again that an open menu shows, and the settings";
    EXPECT_EQ(warned, static_cast<std::size_t>(ticks / ticksAChange / 2 - hours))
        << "once each time that the load goes up while there is a limit";
    EXPECT_LT(bytesNow, bytes + 8 * 1024) << "however many hours; caches of the allocator count unless ctest runs it";
    for (int round = 0; round < 5; ++round) Monitor{settings};
    EXPECT_EQ(Tests::openDescriptors(), descriptors) << "nor is anything left of monitors that end";
}

}  // namespace
}  // namespace Pellora
