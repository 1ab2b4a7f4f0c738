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
        return receiver ? std::exchange(receiver->reports, {}) : Reports();
    }

    Tests::ReplacedClock clock;
    Tests::ReplacedWorkspace workspace;
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>();
    std::shared_ptr<AppRunnerMonitor> monitor = AppRunnerMonitor::create({"org.a", "org.b", "org.c"}, 2);
    const Reports onlyB = {{"org.a", false}, {"org.b", true}, {"org.c", false}};
};

TEST_F(AppRunnerMonitorTest, ReportsAllInTheirOrderAtEachInterval)
{
    workspace->run("org.b");
    workspace->run("org.A");
    monitor->start();
    EXPECT_EQ(after(0), Reports());
    EXPECT_EQ(after(2), onlyB);
    EXPECT_EQ(after(2), onlyB) << "unchanged is reported again";
    EXPECT_EQ(after(1), Reports());
    workspace->end("org.b");
    workspace->run("org.c");
    EXPECT_EQ(after(1), (Reports{{"org.a", false}, {"org.b", false}, {"org.c", true}}));
    monitor->stop();
}

TEST_F(AppRunnerMonitorTest, StartedTwiceHasOneTimerAndStopsOnce)
{
    for (int round = 0; round < 2; ++round) {
        monitor->stop();
        EXPECT_EQ(after(10), Reports());
        monitor->start();
        monitor->start();
        EXPECT_EQ(after(2).size(), 3u);
    }
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

TEST_F(AppRunnerMonitorTest, WithoutListenerOrListNothingIsReported)
{
    const auto empty = AppRunnerMonitor::create({}, 1);
    empty->setDelegate(receiver);
    empty->refresh();
    EXPECT_EQ(receiver->reports, Reports());
    // The listener ends within a pass: the rest of the reports is skipped.
    Reports heard;
    receiver->then = [&] {
        heard = receiver->reports;
        receiver.reset();
    };
    monitor->refresh();
    EXPECT_EQ(heard.size(), 1u);
    monitor->refresh();
}

}  // namespace
}  // namespace Lorrel
