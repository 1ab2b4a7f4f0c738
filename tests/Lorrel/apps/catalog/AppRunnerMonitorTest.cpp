#include <gtest/gtest.h>

#include "Lorrel/apps/AppRunnerMonitor.h"
#include "platform/runtime/RunLoop.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/VirtualClock.h"

namespace Lorrel {
namespace {

using Reports = std::vector<std::pair<std::string, bool>>;

struct Receiver final : AppRunnerMonitorDelegate {
    void monitorDidCheck(std::string_view identifier, bool isRunning) override
    {
        reports.emplace_back(identifier, isRunning);
        if (then) then();
    }
    Reports reports;
    std::function<void()> then;
};

class AppRunnerMonitorTest : public testing::Test {
protected:
    AppRunnerMonitorTest() { monitor->setDelegate(receiver); }

    Reports after(double seconds)
    {
        clock->advance(seconds);
        Platform::RunLoop::current().drain();
        return std::exchange(receiver->reports, {});
    }

    Tests::ReplacedClock clock;
    Tests::ReplacedWorkspace workspace;
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>();
    std::shared_ptr<AppRunnerMonitor> monitor = AppRunnerMonitor::create({"org.a", "org.b", "org.c"}, 2);
};

TEST_F(AppRunnerMonitorTest, ReportsAllInTheirOrderAtEachIntervalFromOneTimer)
{
    workspace->run("org.b");
    workspace->run("org.A");
    monitor->start();
    monitor->start();
    EXPECT_EQ(after(0), Reports());
    const Reports onlyB = {{"org.a", false}, {"org.b", true}, {"org.c", false}};
    EXPECT_EQ(after(2), onlyB);
    EXPECT_EQ(after(2), onlyB) << "unchanged is reported again";
    EXPECT_EQ(after(1), Reports());
    workspace->end("org.b");
    workspace->run("org.c");
    EXPECT_EQ(after(1), (Reports{{"org.a", false}, {"org.b", false}, {"org.c", true}}));
    monitor->stop();
    EXPECT_EQ(after(10), Reports());
    monitor->start();
    EXPECT_EQ(after(2).size(), 3u);
    monitor->stop();
}

TEST_F(AppRunnerMonitorTest, LivesWhileStartedAndEndsFromItsOwnReport)
{
    const std::weak_ptr<AppRunnerMonitor> watched = monitor;
    monitor->start();
    monitor.reset();
    EXPECT_EQ(after(2).size(), 3u);
    receiver->then = [&] { watched.lock()->stop(); };
    EXPECT_EQ(after(2).size(), 3u);
    EXPECT_EQ(after(2), Reports());
    EXPECT_TRUE(watched.expired());
}

TEST_F(AppRunnerMonitorTest, SkipsTheReportsToAListenerThatEndsWithinAPass)
{
    Reports heard;
    receiver->then = [&] {
        heard = receiver->reports;
        receiver.reset();
    };
    for (int pass = 0; pass < 2; ++pass) monitor->refresh();
    EXPECT_EQ(heard.size(), 1u);
}

}  // namespace
}  // namespace Lorrel
