#include <gtest/gtest.h>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/IOKitHelper.h"
#include "Lorrel/system/MacSystem.h"
#include "Lorrel/system/internal/SystemFacts.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeKernel.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/TemporaryDirectory.h"

using namespace std::string_literals;
using Lorrel::MacSystem;

namespace {

class MacSystemTest : public testing::Test {
protected:
    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};
    Tests::ReplacedEnvironment environment;
    Tests::ReplacedKernel kernel;
    Tests::ReplacedProcessInfo process;
    Tests::ReplacedClock clock;
    Platform::Shared<Lorrel::SystemFacts>::Override fresh;
};

}  // namespace

TEST_F(MacSystemTest, SystemTextsComeFromTheVersionString)
{
    const std::string unknown = MacSystem::osName(7);
    const std::tuple<const char*, std::optional<int>, std::string, const char*> cases[] = {
        {"Version 14.2.1 (Build 23C71)", 14, "macOS Sonoma 14.2.1 (Build 23C71)", "macOS 14.2.1 (Build 23C71)"},
        {"Version 11", 11, "macOS Big Sur 11", "macOS 11"},
        {"Version Debian GNU/Linux 12", std::nullopt, unknown + " Debian GNU/Linux 12", "macOS Debian GNU/Linux 12"},
        {"Version", std::nullopt, unknown + " ", "macOS"},
    };
    for (const auto& [version, major, description, marketingText] : cases) {
        process->version = version;
        EXPECT_EQ(MacSystem::osMajorVersion(), major) << version;
        EXPECT_EQ(MacSystem::osDescription(), description);
        EXPECT_EQ(MacSystem::osMarketingVersionText(), marketingText);
    }
    EXPECT_EQ(MacSystem::osName(8), "macOS Tiger");
    EXPECT_EQ(MacSystem::osName(25), unknown);
}

TEST_F(MacSystemTest, CachedFactsAreReadOnceAndMayBeAssigned)
{
    EXPECT_EQ(MacSystem::computerName(), Lorrel::Resources::text("UNKNOWN_COMPUTER_NAME"));
    EXPECT_EQ(MacSystem::osProductVersion(), "");
    kernel->variables = {{"hw.model", "Box9\0rest"s},          {"kern.hostname", "b\xFFx\0"s},
                         {"hw.physicalcpu", "\x08\x01\0\0"s},  {"hw.logicalcpu", "\x10\0\0\0"s},
                         {"kern.osproductversion", "12.5\0"s}, {"machdep.cpu.brand_string", "Fast"s}};
    process->name = "Ada's box";
    EXPECT_EQ(MacSystem::model(), "Box9");
    EXPECT_EQ(MacSystem::hostName(), "b\xEF\xBF\xBDx");
    EXPECT_EQ(MacSystem::cpuBrand(), "Fast");
    EXPECT_EQ(MacSystem::physicalCoreCount(), 8);
    EXPECT_EQ(MacSystem::logicalCoreCount(), 16);
    EXPECT_EQ(MacSystem::threadCount(), 0);
    EXPECT_EQ(MacSystem::osProductVersion(), "12.5");   // asked anew each time
    EXPECT_NE(MacSystem::computerName(), "Ada's box");  // the first read counts
    const Platform::Shared<Lorrel::SystemFacts>::Override later;
    EXPECT_EQ(MacSystem::computerName(), "Ada's box");
    MacSystem::setModel("Other");
    EXPECT_EQ(MacSystem::model(), "Other");
}

TEST_F(MacSystemTest, IntelMachinesTakeTheirNameFromTheTableOfModels)
{
    const auto row = [](const std::string& marketingModel) {
        return "<key>MacPro7,1</key><dict><key>_LOCALIZABLE_</key><dict>" + marketingModel + "</dict></dict>";
    };
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"de_DE.UTF-8", row("<key>marketingModel</key><string>Mac Pro (2019)</string>"), "Mac Pro (2019)"},
        {"de_DE.UTF-8", row(""), "-"},
        {"de_DE.UTF-8", row("<key>marketingModel</key><integer>1</integer>"), "-"},
        {"de_DE.UTF-8", "<broken", "-"},
        {"de-AT", row("<key>marketingModel</key><string>x</string>"), "x"},
        {"../de", row("<key>marketingModel</key><string>x</string>"), "-"},
    };
    for (const auto& [locale, table, marketingName] : cases) {
        const Platform::Shared<Lorrel::SystemFacts>::Override again;
        MacSystem::setModel("MacPro7,1");
        environment->set("LC_ALL", locale);
        const Tests::ReplacedEnvironment sameButRenewed(*environment);  // a locale is read once an environment
        root.write(
            "System/Library/PrivateFrameworks/ServerInformation.framework/Versions/A/Resources/de.lproj/"
            "SIMachineAttributes.plist",
            "<plist version=\"1.0\"><dict>" + table + "</dict></plist>");
        EXPECT_EQ(MacSystem::marketingName(), marketingName) << locale << " " << table;
    }
    EXPECT_EQ(MacSystem::efficiencyCoreCount(), std::nullopt);
    EXPECT_FALSE(MacSystem::isAppleSilicon());
    EXPECT_EQ(MacSystem::processorName(), "Intel");
    EXPECT_EQ(MacSystem::serialNumber(), "-");
}

TEST_F(MacSystemTest, ArmMachinesReadTheirNameAndCoresFromTheRegistry)
{
    kernel->machineName = "arm64";
    for (int i = 0; i < 4; ++i) {
        root.write("proc/device-tree/cpus/cpu@" + std::to_string(i) + "/compatible",
                   i < 3 ? "Apple,IceStorm\0ARM,v8\0"s : "apple,firestorm\0"s);
    }
    root.write("proc/device-tree/cpus/cpu@4/compatible", "apple,firestorm\xFF"s);  // not UTF-8
    root.write("proc/device-tree/model", "Mac mini (M1, 2020)"s);                  // no zero byte: the whole length
    root.write("proc/device-tree/serial-number", " C02X \n\0"s);
    EXPECT_EQ(MacSystem::efficiencyCoreCount(), 3);
    EXPECT_EQ(MacSystem::performanceCoreCount(), 1);
    EXPECT_EQ(MacSystem::marketingName(), "Mac mini (M1, 2020)");
    EXPECT_EQ(MacSystem::serialNumber(), "C02X");
    EXPECT_EQ(MacSystem::processorName(), "Apple Silicon");

    const Platform::IORegistryEntryRef cpu = Platform::IORegistry::shared().servicesNamed("cpu").front();
    EXPECT_EQ(Lorrel::IOKitHelper::numberProperty(*cpu, "compatible"), Platform::Number(0x6c707041U));
    EXPECT_EQ(Lorrel::IOKitHelper::numberProperty(*cpu, "missing"), std::nullopt);
    root.write("proc/device-tree/cpus/cpu@0/reg", "\x07");
    EXPECT_EQ(Lorrel::IOKitHelper::numberProperty(*cpu, "reg"), Platform::Number(7U));
}

TEST_F(MacSystemTest, UptimesAreClockTextsOrTheirPlaceholders)
{
    EXPECT_EQ(MacSystem::uptimeText(), "-");
    EXPECT_EQ(MacSystem::bootUptimeText(), "00:00:00:-1");
    kernel->uptime = 3661;
    const auto start = static_cast<std::int64_t>(clock->wallSeconds()) - 90061;
    // Seconds and microseconds of 64 bits each.
    kernel->bootTime = std::string(reinterpret_cast<const char*>(&start), 8) + std::string(8, '\0');
    EXPECT_EQ(MacSystem::uptimeText(), "00:01:01:01");
    EXPECT_EQ(MacSystem::bootUptimeText(), "01:01:01:01");
    kernel->uptime = 0;
    EXPECT_EQ(MacSystem::uptimeText(), "-");
}
