#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include "platform/system/ProcessInfo.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryDirectory.h"

using namespace std::chrono_literals;

namespace {

// Answers as the host-name service does, on a thread of its own.
class HostNameService {
public:
    explicit HostNameService(const char* name) : name_(name)
    {
        std::promise<void> isThere;
        thread_ = std::thread([&] { serve(isThere); });
        isThere.get_future().wait();
    }
    ~HostNameService()
    {
        isEnding_ = true;
        thread_.join();
    }

private:
    static int answer(sd_bus_message* call, void* self, sd_bus_error*)
    {
        const char* interface = nullptr;
        const char* property = nullptr;
        if (!::sd_bus_message_is_method_call(call, "org.freedesktop.DBus.Properties", "Get")) return 0;
        if (::sd_bus_message_read(call, "ss", &interface, &property) < 0) return 0;
        if (std::string(interface) + "." + property != "org.freedesktop.hostname1.PrettyHostname") return 0;
        return ::sd_bus_reply_method_return(call, "v", "s", static_cast<HostNameService*>(self)->name_);
    }

    void serve(std::promise<void>& isThere)
    {
        sd_bus* opened = nullptr;
        EXPECT_GE(::sd_bus_open_user(&opened), 0);
        const std::unique_ptr<sd_bus, sd_bus* (*)(sd_bus*)> bus(opened, &::sd_bus_flush_close_unref);
        EXPECT_GE(::sd_bus_add_object(bus.get(), nullptr, "/org/freedesktop/hostname1", &answer, this), 0);
        EXPECT_GE(::sd_bus_request_name(bus.get(), "org.freedesktop.hostname1", 0), 0);
        isThere.set_value();
        while (!isEnding_) {
            if (::sd_bus_process(bus.get(), nullptr) == 0) ::sd_bus_wait(bus.get(), 10'000);
        }
    }

    const char* name_;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_;
};

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
        const HostNameService service(name);
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
