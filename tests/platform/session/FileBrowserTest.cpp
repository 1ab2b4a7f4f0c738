#include <filesystem>

#include <gtest/gtest.h>

#include "platform/session/Workspace.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/BusService.h"
#include "tests/support/PrivateBus.h"

namespace Platform {
namespace {

class FileBrowserTest : public testing::Test {
protected:
    FileBrowserTest()
    {
        std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
        environment->set("PATH", "::relative:/missing:" + folder / "bin");
        environment->set("DBUS_SESSION_BUS_ADDRESS", bus.address());
    }

    // A file browser on the bus; keeps what it is asked to show.
    BusMessage reply(const BusMessage& call)
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
    bool isOpened(const std::string& text) const
    {
        return Tests::eventually([&] { return Tests::contentOf(folder / "opened") == text + "\n"; });
    }

    Tests::TemporaryDirectory folder;
    // An xdg-open that notes what it is given.
    std::string opener = folder.write("bin/xdg-open", "#!/bin/sh\necho \"$1\" > \"" + folder / "opened" + "\"\n");
    Tests::PrivateBus bus;
    Tests::ReplacedEnvironment environment{folder.path()};
    Tests::ReplacedLog log;
    Shared<Workspace>::Override fresh;
    Shared<BusConnection>::Override freshBus;
    Workspace& workspace = Workspace::shared();
    std::vector<std::string> shown;
    bool refuses = false;
};

TEST_F(FileBrowserTest, AnEntryIsSelectedOrElseItsFolderOpened)
{
    {
        const char* name = "org.freedesktop.FileManager1";
        const Tests::BusService browser(name, "/org/freedesktop/FileManager1",
                                        [this](const BusMessage& call) { return reply(call); });
        EXPECT_TRUE(workspace.selectFile("/a b/caf\xe9.txt", "/a b"));
        EXPECT_TRUE(Tests::eventually([&] { return !shown.empty(); }));
        EXPECT_EQ(shown, std::vector<std::string>{"ShowItems file:///a%20b/caf%E9.txt"});
        refuses = true;
        EXPECT_TRUE(workspace.selectFile("/a/b", "/a"));
        EXPECT_TRUE(isOpened("file:///a/"));
        EXPECT_EQ(log->count("no window today"), 1u);
    }
    EXPECT_TRUE(workspace.selectFile("/c/d", "/c")) << "no browser";
    EXPECT_TRUE(isOpened("file:///c/"));
    bus.stop();
    EXPECT_TRUE(workspace.selectFile("/e/f", "/e")) << "no bus";
    EXPECT_TRUE(isOpened("file:///e/"));
    EXPECT_FALSE(workspace.selectFile("/", ""));
}

TEST_F(FileBrowserTest, LocationsReachTheOpenerUnchanged)
{
    for (const char* text : {"x-example.settings:com.example.pane?Privacy_A%20b&c='d';$HOME", "file:///a%20b%25/"}) {
        EXPECT_TRUE(workspace.openURL(*Url::parse(text)));
        EXPECT_TRUE(isOpened(text));
    }
}

}  // namespace
}  // namespace Platform
