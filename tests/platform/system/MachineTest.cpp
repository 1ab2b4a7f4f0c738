#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/runtime/FileDescriptor.h"
#include "platform/system/Kernel.h"
#include "platform/system/ProcessInfo.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/Eventually.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;
using namespace std::string_literals;

namespace {

// A machine made of the files that a test lays out.
class MachineTest : public testing::Test {
protected:
    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};

    void writeZone(const std::string& name, const std::string& temperature)
    {
        const std::string zone = "sys/class/thermal/" + name + "/";
        root.write(zone + "temp", temperature);
        int count = 0;
        for (const auto& [type, limit] :
             {std::pair{"active\n", "50000\n"}, {"passive\n", "70000\n"}, {"critical\n", "100000\n"}}) {
            const std::string point = zone + "trip_point_" + std::to_string(count++);
            root.write(point + "_type", type);
            root.write(point + "_temp", limit);
        }
    }
};

std::string number(std::uint32_t value)
{
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

}  // namespace

TEST_F(MachineTest, VariablesHaveTheShapeOfTheirKindOrAreAbsent)
{
    const std::tuple<const char*, std::string, const char*, std::optional<std::string>> cases[] = {
        {"sys/class/dmi/id/product_name", "Workstation 9\n", "hw.model", "Workstation 9\0"s},
        {"proc/device-tree/model", "Board\0"s, "hw.model", "Board\0"s},
        {"proc/cpuinfo", "model names : no\nmodel name\t: \nmodel name :Fast @ 3\n" + std::string(3 << 20, 'y'),
         "machdep.cpu.brand_string", "Fast @ 3\0"s},
        {"proc/cpuinfo", "model name", "machdep.cpu.brand_string", std::nullopt},
        {"proc/sys/kernel/hostname", "box\n", "kern.hostname", "box\0"s},
        {"etc/os-release", "NAME=x\nVERSION_ID=\"12\"\n", "kern.osproductversion", "12\0"s},
        {"etc/os-release", "VERSION_IDENTITY=12", "kern.osproductversion", std::nullopt},
        {"proc/stat", "cpu 1 2\nbtime 1700000000\n", "kern.boottime", number(1700000000) + std::string(12, '\0')},
        {"proc/stat", "btime soon\n", "kern.boottime", std::nullopt},
        {"proc/stat", "", "no.such.variable", std::nullopt},
    };
    for (const auto& [file, content, variable, bytes] : cases) {
        SCOPED_TRACE(content.substr(0, 40) + " -> " + variable);
        const Tests::TemporaryDirectory machine;
        const Tests::ReplacedSystemRoots only(machine.path());
        EXPECT_EQ(Kernel::shared().variable(variable), std::nullopt);  // nothing there yet
        machine.write(file, content);
        EXPECT_EQ(Kernel::shared().variable(variable), bytes);
    }
}

TEST_F(MachineTest, CountsProcessorsOfAnyMachine)
{
    const std::string folder = "sys/devices/system/cpu/";
    for (const auto& [logical, threadsPerCore] : {std::pair{1, 1}, {8, 2}, {256, 4}}) {
        SCOPED_TRACE(logical);
        root.write(folder + "online", "0-" + std::to_string(logical - 1) + "\n");
        root.write(folder + "present", "0-" + std::to_string(logical));
        for (int i = 0; i < logical; ++i) {
            const int first = i / threadsPerCore * threadsPerCore;
            root.write(folder + "cpu" + std::to_string(i) + "/topology/thread_siblings_list",
                       std::to_string(first) + "-" + std::to_string(first + threadsPerCore - 1));
        }
        EXPECT_EQ(Kernel::shared().variable("hw.logicalcpu"), number(static_cast<std::uint32_t>(logical)));
        const auto info = Kernel::shared().hostBasicInfo();
        EXPECT_EQ(std::tuple(info.physical_cpu, info.max_cpus, info.avail_cpus),
                  std::tuple(logical / threadsPerCore, logical + 1, logical));
    }
}

TEST_F(MachineTest, CountsProcessorsWithoutListsAndWithBrokenOnes)
{
    EXPECT_EQ(ProcessInfo::shared().activeProcessorCount(), 1);
    root.write("proc/cpuinfo", "processor : 0\nvendor : x\nprocessor : 1\n");
    for (const char* list : {"", "x", "3-1", "0-99999999999", "-1", "1,,2"}) {
        root.write("sys/devices/system/cpu/online", list);
        EXPECT_EQ(ProcessInfo::shared().activeProcessorCount(), 2) << list;
    }
    root.write("sys/devices/system/cpu/online", "0-1,4,6-7,");  // no topology: each is a core
    EXPECT_EQ(Kernel::shared().hostBasicInfo().physical_cpu, 5);
}

TEST_F(MachineTest, ThermalStateIsThatOfTheWorstZone)
{
    EXPECT_EQ(ProcessInfo::shared().thermalState(), ThermalState::nominal);
    const std::pair<const char*, ThermalState> cases[] = {
        {"49999\n", ThermalState::nominal}, {"50000\n", ThermalState::fair},  {"80000\n", ThermalState::serious},
        {"100000", ThermalState::critical}, {"a lot", ThermalState::nominal}, {"", ThermalState::nominal},
    };
    writeZone("thermal_zone0", "20000\n");
    for (const auto& [temperature, state] : cases) {
        writeZone("thermal_zone1", temperature);
        EXPECT_EQ(ProcessInfo::shared().thermalState(), state) << temperature;
    }
}

TEST_F(MachineTest, ASensorThatBlocksLeavesTheOthersToAnswer)
{
    writeZone("thermal_zone0", "80000\n");
    writeZone("thermal_zone1", "");
    const std::string stuck = root / "sys/class/thermal/thermal_zone1/temp";
    ::unlink(stuck.c_str());
    ASSERT_EQ(::mkfifo(stuck.c_str(), 0600), 0);

    EXPECT_EQ(ProcessInfo::shared().thermalState(), ThermalState::serious);
    const auto threadCount = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}); };
    const auto threads = threadCount();
    for (int i = 0; i < 20; ++i) EXPECT_EQ(ProcessInfo::shared().thermalState(), ThermalState::serious);
    EXPECT_LT(threadCount(), threads + 10);  // one waits, however often it is asked

    FileDescriptor(::open(stuck.c_str(), O_RDWR | O_CLOEXEC)).reset();
    ::unlink(stuck.c_str());
    writeZone("thermal_zone1", "100000");
    EXPECT_TRUE(Tests::eventually([] { return ProcessInfo::shared().thermalState() == ThermalState::critical; }));
}

TEST_F(MachineTest, NamesTheSystemAndTheComputer)
{
    EXPECT_EQ(ProcessInfo::shared().operatingSystemVersionString(), "Version");
    root.write("etc/os-release", "# a comment\nPRETTY_NAME=\"Debian \\\"stable\\\" 12\"\n");
    EXPECT_EQ(ProcessInfo::shared().operatingSystemVersionString(), "Version Debian \"stable\" 12");
    root.write("etc/machine-info", "ICON_NAME=computer\nPRETTY_HOSTNAME='Ada\xE2\x80\x99s box'\n");
    EXPECT_EQ(ProcessInfo::shared().computerName(), "Ada\xE2\x80\x99s box");
    root.write("etc/machine-info", "PRETTY_HOSTNAME=\"b\xFF\"\n");
    EXPECT_EQ(ProcessInfo::shared().computerName(), "b\xEF\xBF\xBD");
}

TEST(RealMachine, AnswersWithPlausibleFacts)
{
    EXPECT_GT(ProcessInfo::shared().physicalMemory(), 1U << 24);
    EXPECT_FALSE(Kernel::shared().machine().empty());
    EXPECT_GT(Kernel::shared().rawUptimeSeconds().value_or(0), 0);
    const auto boot = Kernel::shared().variable(bootTimeVariable);
    ASSERT_TRUE(boot);
    EXPECT_EQ(boot->size(), 16U);
}
