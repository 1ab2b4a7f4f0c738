#include <algorithm>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Timer.h"
#include "tests/fakes/VirtualClock.h"

using namespace std::chrono_literals;
using Platform::RunLoop;
using Platform::Subscription;
using Platform::Timer;

namespace {

class RunLoopTest : public testing::Test {
protected:
    Tests::ReplacedClock clock;
    RunLoop& loop = RunLoop::current();

    void advance(double seconds)
    {
        clock->advance(seconds);
        loop.drain();
    }
};

}  // namespace

TEST_F(RunLoopTest, LateTimersFireOnceAndStayOnTheirGrid)
{
    std::vector<std::shared_ptr<Timer>> timers;
    int fires = 0;
    for (int i = 0; i < 50; ++i) timers.push_back(Timer::scheduled(1.0, true, [&] { ++fires; }));

    advance(0.9);
    EXPECT_EQ(fires, 0);
    advance(0.1);
    EXPECT_EQ(fires, 50);
    advance(100.5);  // overdue a hundred times: one fire each
    EXPECT_EQ(fires, 100);
    advance(0.4);
    EXPECT_EQ(fires, 100);
    advance(0.1);  // the grid's next point, not a second after the late fire
    EXPECT_EQ(fires, 150);

    for (const auto& timer : timers) timer->invalidate();
    advance(10);
    EXPECT_EQ(fires, 150);
}

TEST_F(RunLoopTest, TimersEndFromInsideAndLetGoOfTheirAction)
{
    auto owned = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = owned;
    std::shared_ptr<Timer> timer;
    timer = Timer::scheduled(1.0, true, [owned = std::move(owned), &timer] {
        ++*owned;
        timer->invalidate();
        timer->invalidate();
        EXPECT_EQ(*owned, 1);  // still alive until the action returns
    });
    advance(5);
    EXPECT_FALSE(timer->isValid());
    EXPECT_TRUE(watched.expired());

    int once = 0;
    const auto single = Timer::scheduled(std::nan(""), false, [&] { ++once; });
    for (int i = 0; i < 2; ++i) advance(1);
    EXPECT_EQ(once, 1);
}

TEST_F(RunLoopTest, PostsFromAnyThreadArriveInOrder)
{
    constexpr int count = 1000;
    std::vector<int> seen;
    const std::jthread poster([&] {
        for (int i = 0; i < count; ++i) loop.post([&seen, i] { seen.push_back(i); });
    });
    EXPECT_TRUE(loop.runUntil([&] { return seen.size() == count; }, 20s));
    EXPECT_TRUE(std::ranges::is_sorted(seen));
}

TEST_F(RunLoopTest, StopEndsTheInnermostRunAndStopAllEveryRun)
{
    std::vector<int> ended;
    loop.post([&] {
        loop.post([&] { loop.stop(); });
        loop.run();
        ended.push_back(2);
        loop.post([&] {
            loop.post([&] { loop.stopAll(); });
            loop.run();
            ended.push_back(3);
        });
    });
    loop.run();
    ended.push_back(1);
    EXPECT_EQ(ended, (std::vector<int>{2, 3, 1}));
}

TEST_F(RunLoopTest, WatchesCallBackUntilCancelledAlsoFromInside)
{
    const Platform::FileDescriptor event(::eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK));
    int calls = 0;
    Subscription watch;
    watch = loop.watch(event.get(), EPOLLIN, [&](std::uint32_t) {
        if (++calls == 3) watch.cancel();
    });
    loop.drain();
    EXPECT_EQ(calls, 3);
}

TEST_F(RunLoopTest, RunUntilEndsInTimeThoughABlockPostsItselfForEver)
{
    int turns = 0;
    std::function<void()> again = [&] {
        if (++turns < 10'000'000) loop.post(again);
    };
    again();
    EXPECT_FALSE(loop.runUntil([] { return false; }, 20ms));
    EXPECT_LT(turns, 10'000'000);
    turns = 10'000'000;
    loop.drain();
}

TEST_F(RunLoopTest, SubscriptionsMayOutliveTheLoopOfAnEndedThread)
{
    Subscription watch;
    std::shared_ptr<Timer> timer;
    const Platform::FileDescriptor event(::eventfd(0, EFD_CLOEXEC));
    std::thread([&] {
        watch = RunLoop::current().watch(event.get(), EPOLLIN, [](std::uint32_t) {});
        timer = Timer::scheduled(1.0, true, [] {});
    }).join();
    watch.cancel();
    timer->invalidate();
    EXPECT_FALSE(timer->isValid());
}
