#include <dirent.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include "examples/pellora/Monitor.h"
#include "examples/pellora/watch/LimitWarnings.h"
#include "platform/runtime/RunLoop.h"
#include "tests/examples/pellora/Machine.h"
#include "tests/fakes/FakeUserNotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/Torture.h"

namespace Pellora {
namespace {

constexpr int ticksAnHour = 1800;
constexpr int ticksAChange = 10;

struct Uses {
    std::size_t bytes;
    long descriptors;
};

Uses uses()
{
    long descriptors = 0;
    DIR* const folder = opendir("/proc/self/fd");
    while (readdir(folder)) ++descriptors;
    closedir(folder);
    return {mallinfo2().uordblks, descriptors};
}

struct Soak : testing::Test {
    Soak()
    {
        machine.write({{"proc/meminfo", "MemTotal: 4096 kB\nMemAvailable: 1024 kB\n"},
                       {"proc/loadavg", "9 9 9 1/1 1\n"},
                       {"proc/net/dev", "eth0: 1 0 0 0 0 0 0 0 1 0\n"},
                       {"sys/class/thermal/thermal_zone0/temp", "50000\n"},
                       {"sys/class/power_supply/BAT0/type", "Battery\n"},
                       {"sys/class/power_supply/BAT0/capacity", "50\n"}});
        changeReadings();
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
            warned += desktop->shown.size();
            desktop->shown.clear();
        }
    }

    Tests::Machine machine;
    Tests::ReplacedClock clock;
    Tests::ReplacedWorkspace workspace;
    Tests::ReplacedUserNotificationCenter desktop;
    int changes = 0;
    std::size_t dispatched = 0;
    std::size_t warned = 0;
};

TEST_F(Soak, HoursTakeNoMoreThanOneWakeUpATickAndNoMemory)
{
    Settings settings;
    settings.disk = machine.folder.path();
    settings.applications = {"com.example.a"};
    settings.limits = {*limitFrom("load.1>5")};
    const auto monitor = monitorFor(settings);
    const auto warnings = std::make_shared<LimitWarnings>(monitor->readings(), settings.limits);
    monitor->addListener(warnings);
    passTicks(2 * ticksAnHour);  // until every store and queue has the memory that it keeps
    const Uses before = uses();
    const int hours = static_cast<int>(Tests::atLength("hours", 4));

    dispatched = 0;
    warned = 0;
    passTicks(hours * ticksAnHour);

    EXPECT_EQ(dispatched, static_cast<std::size_t>(hours * ticksAnHour)) << "the timer's ticks and nothing else";
    EXPECT_EQ(warned, static_cast<std::size_t>(hours * ticksAnHour / ticksAChange / 2))
        << "once each time that the load goes up";
    EXPECT_EQ(monitor->readings()->stringFor("cpu.total"), "100 %");
    EXPECT_EQ(monitor->readings()->historyFor("cpu.total")->size(), 60u);
    EXPECT_LT(uses().bytes, before.bytes + 2 * 4 * ticksAnHour);
    for (int round = 0; round < 5; ++round) monitorFor(settings);
    EXPECT_EQ(uses().descriptors, before.descriptors) << "nor is anything left of monitors that end";
}

}  // namespace
}  // namespace Pellora
