#include <future>
#include <thread>

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

// Answers as the host-name service does, on a thread of its own.
std::jthread serve(const char* name)
{
    std::promise<void> isThere;
    std::jthread thread([&isThere, name](const std::stop_token& ending) {
        const Tests::BusService service("org.freedesktop.hostname1", "/org/freedesktop/hostname1",
                                        [name](BusMessage call) { return answer(std::move(call), name); });
        isThere.set_value();
        Tests::eventually([&] { return ending.stop_requested(); }, 60s);
    });
    isThere.get_future().wait();
    return thread;
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
        const std::jthread service = serve(name);
        EXPECT_EQ(computerName(), *name ? std::optional<std::string>(name) : std::nullopt);
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
