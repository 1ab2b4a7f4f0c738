#include <filesystem>

#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include "examples/pellora/Subjects.h"
#include "examples/pellora/providers/DiskProvider.h"
#include "tests/examples/pellora/Machine.h"

namespace {

using Texts = std::vector<std::pair<std::string, std::string>>;

// What changes before an update, and the seconds that it is told of.
struct Step {
    Tests::Files changes;
    double elapsed = 1;
};

// The machine as Pellora finds it, the updates, and what is read after the last.
struct ReadingCase {
    const char* name;
    Tests::Files machine;
    std::vector<Step> steps;
    Texts expected;
};

std::string netDev(const std::string& lines)
{
    return "Inter-|   Receive                |  Transmit\n face |bytes    packets errs|bytes    packets\n" + lines;
}

const std::string memory =
    "MemTotal:  4096 kB\nMemFree: 100 kB\nMemAvailable: 3072 kB\nSwapTotal: 0 kB\nSwapFree: 0 kB\n";

const ReadingCase readings[] = {
    {"nothing", {}, {{}}, {}},
    {"damage",
     {{"proc/stat", "intr 1\n"}, {"proc/meminfo", "MemTotal: many kB\n"}, {"proc/net/dev", netDev("eth0 7\n")}},
     {{}},
     {}},
    {"processor",
     {{"proc/stat", "cpu  10 0 10 100 0 0 0 0 5 0\ncpu0 5 0 5 50 0 0 0 0 5 0\ncpu1 5 0 5 50 0 0 0 0\nintr 7\n"}},
     {{{{"proc/stat", "cpu  30 0 10 160 0 0 0 0 9 0\ncpu0 25 0 5 50 0 0 0 0 9 0\ncpu1 5 0 5 110 0 0 0 0\nintr 8\n"}}}},
     {{"cpu.total", "25 %"}, {"cpu.core.0", "100 %"}, {"cpu.core.1", "0 %"}}},
    {"processor whose waiting time steps back while a core goes",
     {{"proc/stat", "cpu  10 0 0 100 50 0 0 0\ncpu0 5 0 0 50 25 0 0 0\ncpu1 5 0 0 50 25 0 0 0\n"}},
     {{{{"proc/stat", "cpu  20 0 0 110 20 0 0 0\ncpu0 15 0 0 80 25 0 0 0\n"}}}},
     {{"cpu.total", "100 %"}, {"cpu.core.0", "25 %"}, {"cpu.core.1", "-"}}},
    {"processor with a core that is switched on later",
     {{"proc/stat", "cpu 0 0 0 0\n"}},
     {{{{"proc/stat", "cpu 5 0 0 5\ncpu1 0 0 0 0\n"}}}, {{{"proc/stat", "cpu 6 0 0 6\ncpu1 3 0 0 1\n"}}}},
     {{"cpu.total", "50 %"}, {"cpu.core.0", "-"}, {"cpu.core.1", "75 %"}}},
    {"processor whose counters have not moved at last",
     {{"proc/stat", "cpu 0 0 0 0\n"}},
     {{{{"proc/stat", "cpu 1 0 0 1\n"}}}, {{}, 0.001}},
     {{"cpu.total", "50 %"}}},
    {"memory",
     {{"proc/meminfo", "MemTotal:  4096 kB\nMemFree: 100 kB\nMemAvailable: 3072 kB\nSwapTotal: 0 kB\n"}},
     {{}},
     {{"memory.percent", "25 %"}, {"memory.used", "1 MB"}, {"memory.total", "4 MB"}}},
    {"memory with swap space, unreadable later",
     {{"proc/meminfo", "MemTotal: 8 kB\nMemAvailable: 4 kB\nSwapTotal: 2 kB\nSwapFree: 1 kB\n"}},
     {{{{"proc/meminfo", "MemTotal: 8 kB\nSwapTotal: 2 kB\nSwapFree: 0 kB\n"}}}},
     {{"memory.percent", "-"}, {"memory.used", "-"}, {"memory.total", "8 KB"}, {"swap.used", "2 KB"}}},
    {"network of a container, and a clock that steps back",
     {{"proc/net/dev", netDev("    lo: 5 0 0 0 0 0 0 0 5 0\n  eth0:1000 1 0 0 0 0 0 0 500 1\n")}},
     {{{{"proc/net/dev", netDev("    lo: 9 0 0 0 0 0 0 0 9 0\n  eth0:5096 1 0 0 0 0 0 0 2548 1\n")}}, 2}, {{}, -3600}},
     {{"network.in", "2 KB"}, {"network.out", "1 KB"}}},
    {"network whose bridge counts again what the card has counted",
     {{"sys/class/net/card0/device", ""},
      {"proc/net/dev", netDev("card0: 0 0 0 0 0 0 0 0 0 0\n br0: 0 0 0 0 0 0 0 0 0 0\n")}},
     {{{{"proc/net/dev", netDev("card0: 100 0 0 0 0 0 0 0 7 0\n br0: 90 0 0 0 0 0 0 0 6 0\n")}}}},
     {{"network.in", "100 B"}, {"network.out", "7 B"}}},
    {"network card set up anew, and another that has just come",
     {{"proc/net/dev", netDev("a0: 900 0 0 0 0 0 0 0 900 0\n")}},
     {{{{"proc/net/dev", netDev("a0: 10 0 0 0 0 0 0 0 1000 0\nb0: 70 0 0 0 0 0 0 0 70 0\n")}}}},
     {{"network.in", "0 B"}, {"network.out", "100 B"}}},
    {"temperature of the processor before those of disk and zone",
     {{"sys/class/hwmon/hwmon0/name", "nvme\n"},
      {"sys/class/hwmon/hwmon0/temp1_input", "30000\n"},
      {"sys/class/hwmon/hwmon1/name", "k10temp\n"},
      {"sys/class/hwmon/hwmon1/temp1_input", "40000\n"},
      {"sys/class/thermal/thermal_zone0/type", "acpitz\n"},
      {"sys/class/thermal/thermal_zone0/temp", "20000\n"}},
     {{{{"sys/class/hwmon/hwmon1/temp1_input", "51500\n"}}}},
     {{"temperature", "51.5"}}},
    {"temperature of the first zone that can be read, lost later",
     {{"sys/class/thermal/thermal_zone0/type", "acpitz\n"}, {"sys/class/thermal/thermal_zone1/temp", "-5000\n"}},
     {{{{"sys/class/thermal/thermal_zone1/temp", "unknown\n"}}}},
     {{"temperature", "-"}}},
    {"batteries of the computer, not of the mouse",
     {{"sys/class/power_supply/AC/type", "Mains\n"},
      {"sys/class/power_supply/BAT0/type", "Battery\n"},
      {"sys/class/power_supply/BAT0/capacity", "50\n"},
      {"sys/class/power_supply/BAT0/status", "Unknown\n"},
      {"sys/class/power_supply/BAT1/type", "Battery\n"},
      {"sys/class/power_supply/BAT1/capacity", "75\n"},
      {"sys/class/power_supply/BAT1/status", "Discharging\n"},
      {"sys/class/power_supply/mouse/type", "Battery\n"},
      {"sys/class/power_supply/mouse/scope", "Device\n"},
      {"sys/class/power_supply/mouse/capacity", "1\n"}},
     {{}},
     {{"battery.percent", "62.5 %"}, {"battery.state", "discharging"}}},
};

TEST(Readings, TellWhatTheMachineHas)
{
    for (const auto& one : readings) {
        const Tests::Machine machine;
        machine.write(one.machine);
        Pellora::Settings settings;
        settings.disk = "/no such disk";
        std::vector<std::shared_ptr<Pellora::Provider>> providers;
        for (const auto& subject : Pellora::allSubjects()) {
            if (auto provider = subject.provider(settings)) providers.push_back(std::move(provider));
        }
        for (const auto& [changes, elapsed] : one.steps) {
            machine.write(changes);
            for (const auto& provider : providers) provider->update(elapsed);
        }

        Texts found;
        for (const auto& provider : providers) {
            for (const auto& key : provider->keys()) found.emplace_back(key, provider->stringFor(key));
        }
        EXPECT_EQ(found, one.expected) << one.name;
    }
}

TEST(DiskReadings, AgreeWithTheFileSystemAndEndWithIt)
{
    const Tests::Machine machine;
    const std::string folder = machine.folder.makeFolder("disk");
    Pellora::DiskProvider disk(folder);
    disk.update(1);
    struct statvfs state {};
    ASSERT_EQ(statvfs(folder.c_str(), &state), 0);
    const auto used = static_cast<double>((state.f_blocks - state.f_bfree) * state.f_frsize);
    const auto free = static_cast<double>(state.f_bavail * state.f_frsize);
    EXPECT_NEAR(disk.valueFor("disk.used")->doubleValue(), used, 1e9);
    EXPECT_NEAR(disk.valueFor("disk.free")->doubleValue(), free, 1e9);
    EXPECT_NEAR(disk.valueFor("disk.percent")->doubleValue(), 100 * used / (used + free), 1);

    std::filesystem::remove(folder);
    disk.update(1);
    EXPECT_EQ(disk.stringFor("disk.percent"), "-");
}

}  // namespace
