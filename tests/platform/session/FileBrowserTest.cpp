#include <gtest/gtest.h>
#include <sys/stat.h>
#include <systemd/sd-bus.h>

#include "platform/bus/BusConnection.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/session/Workspace.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

// A file browser of the test's own on the session bus; keeps what it is asked to show.
class Browser {
public:
    explicit Browser(bool refuses = false) : bus_(BusConnection::create(RunLoop::main()))
    {
        EXPECT_TRUE(bus_->join());
        const auto answer = [this, refuses](const BusMessage& call) { return reply(call, refuses); };
        object_ = bus_->exportObject("/org/freedesktop/FileManager1", answer);
        bool isNamed = false;
        const BusMessage request =
            bus_->newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName");
        sd_bus_message_append(request.get(), "su", "org.freedesktop.FileManager1", 0U);
        bus_->call(request, std::chrono::seconds(10),
                   [&](const Result<BusMessage>& done) { isNamed = done.isSuccess(); });
        EXPECT_TRUE(Tests::eventually([&] { return isNamed; }));
    }

    std::vector<std::string> shown;

private:
    BusMessage reply(const BusMessage& call, bool refuses)
    {
        sd_bus_message* answer = nullptr;
        const char* location = nullptr;
        sd_bus_message_enter_container(call.get(), 'a', "s");
        while (sd_bus_message_read(call.get(), "s", &location) > 0) shown.push_back(call.member() + " " + location);
        if (refuses) {
            sd_bus_message_new_method_errorf(call.get(), &answer, SD_BUS_ERROR_FAILED, "no window today");
        } else {
            sd_bus_message_new_method_return(call.get(), &answer);
        }
        return BusMessage(answer);
    }

    std::shared_ptr<BusConnection> bus_;
    Subscription object_;
};

class FileBrowserTest : public testing::Test {
protected:
    FileBrowserTest() : environment(folder.path())
    {
        // An xdg-open that notes what it is given.
        folder.write("bin/xdg-open", "#!/bin/sh\necho \"$1\" > \"" + folder / "opened" + "\"\n");
        ::chmod((folder / "bin/xdg-open").c_str(), 0755);
        environment->set("PATH", folder / "bin:/bin:/usr/bin");
    }
    bool isOpened(const std::string& text) const
    {
        return Tests::eventually([&] { return Tests::contentOf(folder / "opened") == text + "\n"; });
    }

    Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment;
    Tests::ReplacedLog log;
    Shared<Workspace>::Override fresh;
    Shared<BusConnection>::Override freshBus;
};

TEST_F(FileBrowserTest, ShowsTheEntrySelected)
{
    const Tests::PrivateBus bus;
    environment->set("DBUS_SESSION_BUS_ADDRESS", bus.address());
    const Browser browser;
    EXPECT_TRUE(Workspace::shared().selectFile("/a b/caf\xe9.txt", "/a b"));
    EXPECT_TRUE(Tests::eventually([&] { return !browser.shown.empty(); }));
    EXPECT_EQ(browser.shown, std::vector<std::string>{"ShowItems file:///a%20b/caf%E9.txt"});
}

TEST_F(FileBrowserTest, RefusalOpensTheFolderInstead)
{
    const Tests::PrivateBus bus;
    environment->set("DBUS_SESSION_BUS_ADDRESS", bus.address());
    const Browser browser(true);
    EXPECT_TRUE(Workspace::shared().selectFile("/a/b", "/a"));
    EXPECT_TRUE(isOpened("file:///a/"));
    EXPECT_EQ(log->count("no window today"), 1u);
}

TEST_F(FileBrowserTest, WithoutBrowserOrBusTheFolderIsOpened)
{
    {
        const Tests::PrivateBus bus;
        environment->set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        EXPECT_TRUE(Workspace::shared().selectFile("/a/b", "/a"));
        EXPECT_TRUE(isOpened("file:///a/"));
    }
    const Tests::EnvironmentVariable nowhere("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    environment->set("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    EXPECT_TRUE(Workspace::shared().selectFile("/c/d", "/c"));
    EXPECT_TRUE(isOpened("file:///c/"));
    EXPECT_FALSE(Workspace::shared().selectFile("/", ""));
}

}  // namespace
}  // namespace Platform
