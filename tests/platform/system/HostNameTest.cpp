#include <future>

#include <gtest/gtest.h>

#include "platform/system/ProcessInfo.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/BusService.h"
#include "tests/support/PrivateBus.h"

using namespace std::chrono_literals;
using Platform::BusMessage;

namespace {

BusMessage answer(BusMessage call, const char* name)
{
    const auto interface = call.readText(), property = call.readText();
    if (!property || *interface + '.' + *property != "org.freedesktop.hostname1.PrettyHostname") return {};
    sd_bus_message* reply = nullptr;
    ::sd_bus_message_new_method_return(call.get(), &reply);
    ::sd_bus_message_append(reply, "v", "s", name);
    return BusMessage(reply);
}

struct HostNameTest : testing::Test {
    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};  // no file that tells the name
    Tests::PrivateBus bus;
    Tests::EnvironmentVariable systemBus{"DBUS_SYSTEM_BUS_ADDRESS", bus.address()};

    static std::optional<std::string> computerName() { return Platform::ProcessInfo::shared().computerName(); }
};

}  // namespace

TEST_F(HostNameTest, TheServiceTellsWhatNoFileDoes)
{
    EXPECT_EQ(computerName(), std::nullopt);
    for (const char* name : {"Ada's box", ""}) {
        const Tests::BusService service("org.freedesktop.hostname1", "/org/freedesktop/hostname1",
                                        [name](BusMessage call) { return answer(std::move(call), name); });
        auto asked = std::async(std::launch::async, computerName);
        EXPECT_TRUE(Tests::eventually([&] { return asked.wait_for(0s) == std::future_status::ready; }));
        EXPECT_EQ(asked.get(), *name ? std::optional<std::string>(name) : std::nullopt);
    }
}

TEST_F(HostNameTest, ABusThatHangsIsLeftAfterASecond)
{
    bus.freeze();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(computerName(), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    bus.thaw();
}
