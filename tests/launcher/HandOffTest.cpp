#include <algorithm>
#include <csignal>

#include <gtest/gtest.h>

#include "platform/session/Workspace.h"
#include "tests/support/ApplicationBundle.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

// Real bundles, real processes, a real bus.

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Platform::Workspace;
using Tests::eventually;

namespace {

const std::string app = "com.orvane.pellora";
const std::string launcherInApp = "/Contents/Library/LoginItems/PelloraLauncher.app";

struct HandOffTest : testing::Test {
    Tests::TemporaryDirectory home;
    Tests::EnvironmentVariable homeVariable{"HOME", home.path()};
    Tests::EnvironmentVariable configuration{"XDG_CONFIG_HOME", std::nullopt};
    Tests::EnvironmentVariable data{"XDG_DATA_HOME", std::nullopt};
    Tests::EnvironmentVariable runtime{"XDG_RUNTIME_DIR", home.makeFolder("runtime")};
    Tests::PrivateBus bus;
    const std::string place = "Apps and \xc3\xbc % 'more'/Pellora.app";
    const std::string bundle = home / place;

    // Another session's Pellora on this machine would be found running.
    void SetUp() override
    {
        ASSERT_TRUE(eventually([] { return !Workspace::shared().isRunning(app); }, 60s));
    }
    void TearDown() override
    {
        for (const auto& running : ours()) ::kill(running.processIdentifier(), SIGKILL);
        EXPECT_TRUE(eventually([&] { return ours().empty(); }));
    }

    // The running applications of this test's folder.
    std::vector<Platform::RunningApplication> ours() const
    {
        auto all = Workspace::shared().runningApplications();
        std::erase_if(all, [&](const auto& one) { return !one.bundleUrl().path().starts_with(home.path()); });
        return all;
    }
    std::size_t applicationCount() const
    {
        return std::ranges::count_if(ours(), [](const auto& one) { return one.bundleIdentifier() == app; });
    }

    void installApp() const
    {
        fs::create_directories(fs::path(bundle).parent_path());
        fs::copy(PELLORA_APP, bundle, fs::copy_options::recursive);
    }
    // The launcher alone inside an application that is a script, which leaves
    // "opened" behind, so that opening it can be seen.
    void installScript() const
    {
        Tests::makeApplication(home, place, app, "#!/bin/sh\necho >> '" + home.path() + "/opened'\n");
        fs::create_directories(fs::path(bundle + launcherInApp).parent_path());
        fs::copy(std::string(PELLORA_APP) + launcherInApp, bundle + launcherInApp, fs::copy_options::recursive);
    }
    bool hasOpened(std::size_t count) const
    {
        return eventually([&] { return Tests::contentOf(home / "opened").size() == count; });
    }

    Tests::ChildProcess launcher() const
    {
        return Tests::ChildProcess({bundle + launcherInApp + "/Contents/MacOS/PelloraLauncher"},
                                   {.streams = Tests::ChildStreams::outputAndErrors});
    }
    // From a process of its own, which ends right after it.
    static void post(const std::optional<std::string>& object)
    {
        std::vector<std::string> command{NOTIFICATION_POSTER, "killme"};
        if (object) command.push_back(*object);
        EXPECT_EQ(Tests::ChildProcess(command).wait(), 0);
    }
    // Repeats the application's "killme", which a launcher may not yet wait for.
    static void expectEndByKillme(const std::vector<Tests::ChildProcess*>& launchers)
    {
        EXPECT_TRUE(eventually([&] {
            post(app);
            return std::ranges::all_of(launchers, &Tests::ChildProcess::hasEnded);
        }));
        for (auto* launcher : launchers) EXPECT_EQ(launcher->wait(), 0);
    }
};

}  // namespace

TEST_F(HandOffTest, TwoLaunchersAtOnceStartOneApplication)
{
    installApp();
    for (int round = 0; round < 5; ++round) {
        auto one = launcher();
        auto other = launcher();
        ASSERT_TRUE(eventually([&] { return applicationCount() == 1; }));
        // One that registers only after the application's own "killme" waits for the next.
        expectEndByKillme({&one, &other});
        EXPECT_EQ(applicationCount(), 1u);
        for (const auto& running : ours()) EXPECT_TRUE(running.terminate());
        ASSERT_TRUE(eventually([&] { return ours().empty(); }));
    }
}

TEST_F(HandOffTest, OnlyTheRightKillmeEndsAWaitingLauncherAlsoWhereNothingCouldBeOpened)
{
    installScript();
    for (const std::size_t opened : {1U, 0U}) {
        fs::remove(home / "opened");
        if (opened == 0) fs::remove(bundle + "/Contents/MacOS/Program");
        auto waiting = launcher();
        ASSERT_TRUE(hasOpened(opened));
        ASSERT_TRUE(opened > 0 || waiting.readLine()) << "tells what it could not open";
        for (const auto& object : {std::optional<std::string>("com.example.other"), {std::nullopt}, {""}}) post(object);
        EXPECT_EQ(waiting.wait(300ms), std::nullopt);
        expectEndByKillme({&waiting});
    }
}

TEST_F(HandOffTest, ABusThatIsMissingLostOrFrozenStopsNeitherTheStartNorTheEnd)
{
    installScript();
    bus.stop();
    auto alone = launcher();
    ASSERT_TRUE(hasOpened(1));
    EXPECT_FALSE(alone.hasEnded());
    alone.signal(SIGTERM);
    EXPECT_EQ(alone.wait(), 0);

    bus.start();
    auto losing = launcher();
    ASSERT_TRUE(hasOpened(2));
    bus.stop();
    EXPECT_EQ(losing.wait(200ms), std::nullopt);
    bus.start();
    bus.freeze();
    auto waiting = launcher();
    EXPECT_EQ(waiting.wait(500ms), std::nullopt);
    EXPECT_TRUE(hasOpened(2)) << "it opened before it listened for the application's first word";
    EXPECT_TRUE(hasOpened(3));
    bus.thaw();
    expectEndByKillme({&losing, &waiting});
}

TEST_F(HandOffTest, TheSessionStartsTheLauncherFromTheEntryThatTheApplicationWrites)
{
    installApp();
    // What it prints, and then its exit code.
    const auto pellora = [&](std::vector<std::string> command) {
        command.insert(command.begin(), bundle + "/Contents/MacOS/Pellora");
        Tests::ChildProcess process(command, {.streams = Tests::ChildStreams::output});
        const std::string answer = process.readAll();
        return answer + std::to_string(process.wait().value_or(-1));
    };
    EXPECT_EQ(pellora({"--through-launcher", "--start-at-login", "status"}), "off\n0");
    EXPECT_EQ(pellora({"--through-launcher", "--start-at-login", "on"}), "on\n0");

    Tests::ChildProcess dex({"dex", "--wait", home / ".config/autostart/com.orvane.pelloralauncher.desktop"});
    EXPECT_EQ(dex.wait(), 0) << "ends with the launcher";
    EXPECT_EQ(launcher().wait(), 0) << "nothing to start";
    EXPECT_EQ(applicationCount(), 1u);

    EXPECT_EQ(pellora({"--start-at-login", "off"}), "off\n0");
    EXPECT_EQ(pellora({"--directly", "--start-at-login", "on"}), "on\n0");
    EXPECT_TRUE(fs::exists(home / ".config/autostart/com.orvane.pellora.desktop"));
    EXPECT_EQ(pellora({"--start-at-login", "maybe"}), "1");
    EXPECT_EQ(pellora({"--nonsense"}), "2");
}
