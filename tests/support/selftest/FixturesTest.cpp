#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Display.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryDirectory.h"

using namespace std::chrono_literals;

namespace Tests {

namespace {

ChildProcess shell(const std::string& script, ChildProcess::Options options = {})
{
    options.streams = ChildProcess::Streams::outputAndErrors;
    return ChildProcess({"/bin/sh", "-c", script}, options);
}

bool accepts(const std::string& socketPath)
{
    const Platform::FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

TEST(TemporaryDirectory, GoesWithAllThatItHoldsEvenWithoutPermissions)
{
    std::string path;
    {
        const TemporaryDirectory folder;
        path = folder.path();
        EXPECT_EQ(contentOf(folder.write("a/b/file", "text")), "text");
        std::filesystem::permissions(folder / "a/b", std::filesystem::perms::none);
        std::filesystem::permissions(folder / "a", std::filesystem::perms::none);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ChildProcess, TellsItsOutputAndHowItEnded)
{
    const struct {
        const char* script;
        const char* output;
        int status;
    } cases[] = {
        {"echo one; echo two >&2; exit 3", "one\ntwo\n", 3},
        {"kill -TERM $$", "", 128 + SIGTERM},
        {"printf \"$ONE${TWO-unset}\"", "1unset", 0},
    };
    for (const auto& row : cases) {
        ChildProcess child = shell(row.script, {.environment = {{"ONE", "1"}, {"TWO", std::nullopt}}});
        EXPECT_EQ(child.readAll(), row.output) << row.script;
        EXPECT_EQ(child.wait(), row.status) << row.script;
    }
    EXPECT_EQ(ChildProcess({"/no/such/program"}).wait(), 127);
}

TEST(ChildProcess, EndsWithItsScope)
{
    pid_t pid = -1;
    {
        ChildProcess child = shell("echo ready; exec sleep 1000");
        pid = child.pid();
        EXPECT_EQ(child.readLine(), "ready");
        EXPECT_FALSE(child.wait(0ms));
        EXPECT_FALSE(child.readLine(0ms));
    }
    EXPECT_EQ(::kill(pid, 0), -1);
}

TEST(PrivateBus, ComesBackOnItsAddressAndRestoresTheVariable)
{
    const EnvironmentVariable outer("DBUS_SESSION_BUS_ADDRESS", "unix:path=/outer");
    {
        PrivateBus bus;
        EXPECT_EQ(std::getenv("DBUS_SESSION_BUS_ADDRESS"), bus.address());
        const std::string socket = bus.address().substr(std::string("unix:path=").size());
        EXPECT_TRUE(accepts(socket));
        bus.stop();
        EXPECT_FALSE(accepts(socket));
        bus.start();
        EXPECT_TRUE(accepts(socket));
        bus.freeze();
        EXPECT_TRUE(accepts(socket));  // the kernel still takes connections; nobody answers
        bus.thaw();
    }
    EXPECT_STREQ(std::getenv("DBUS_SESSION_BUS_ADDRESS"), "unix:path=/outer");
}

TEST(Display, ListensOnItsNameUntilTheEnd)
{
    std::string socket;
    {
        const Display display;
        EXPECT_EQ(std::getenv("DISPLAY"), display.name());
        socket = "/tmp/.X11-unix/X" + display.name().substr(1);
        EXPECT_TRUE(accepts(socket));
    }
    EXPECT_FALSE(accepts(socket));
}

TEST(Fakes, StandInForTheirServicesForAScope)
{
    const double realTime = Platform::Clock::shared().wallSeconds();
    {
        ReplacedClock clock;
        ReplacedLog log;
        ReplacedEnvironment environment("/home/eve", "eve");
        const auto before = Platform::Clock::shared().monotonic();

        clock->advance(1.5);
        EXPECT_EQ(Platform::Clock::shared().monotonic() - before, 1500ms);
        clock->setWall(7);
        EXPECT_EQ(Platform::Clock::shared().wallSeconds(), 7);
        EXPECT_EQ(Platform::Clock::shared().monotonic() - before, 1500ms);

        Platform::log("bus lost");
        EXPECT_EQ(log->count("lost"), 1u);

        environment->set("XDG_CONFIG_HOME", "relative");
        EXPECT_EQ(Platform::Environment::shared().configHome(), "/home/eve/.config");
    }
    EXPECT_GE(Platform::Clock::shared().wallSeconds(), realTime);
}

}  // namespace Tests
