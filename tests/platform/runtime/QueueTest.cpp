#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "platform/runtime/Queue.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Semaphore.h"
#include "tests/fakes/CapturingLog.h"

using namespace Platform;
using namespace std::chrono_literals;

namespace {

using Kind = Queue::Kind;

class QueueOfKind : public testing::TestWithParam<Kind> {
protected:
    std::shared_ptr<Queue> queue = Queue::create("tested", GetParam());
};

INSTANTIATE_TEST_SUITE_P(Both, QueueOfKind, testing::Values(Kind::serial, Kind::concurrent));

template <typename Body>
void onThreads(int count, const Body& body)
{
    std::vector<std::jthread> threads;
    for (int at = 0; at < count; ++at) threads.emplace_back([&body, at] { body(at); });
}

}  // namespace

TEST_P(QueueOfKind, RunsBarriersInOrderNeverInsideTheSubmittingCallAndReadsSeeThem)
{
    const auto here = std::this_thread::get_id();
    std::atomic<bool> isSubmitting = false;
    std::atomic<int> insideCount = 0;
    std::vector<int> order;
    for (int at = 0; at < 1000; ++at) {
        isSubmitting = true;
        queue->asyncBarrier([&, at] {
            insideCount += isSubmitting && std::this_thread::get_id() == here;
            order.push_back(at);
        });
        isSubmitting = false;
        if (at % 7 != 0) continue;
        ASSERT_EQ(queue->sync([&] { return order.back(); }), at);
    }
    queue->syncBarrier([&] { order.push_back(1000); });
    EXPECT_EQ(insideCount, 0);
    EXPECT_EQ(order.size(), 1001U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_P(QueueOfKind, KeepsBarriersAloneUnderEveryMixOfUse)
{
    long value = 0;  // guarded by the queue; the sanitizer watches
    std::atomic<long> expected = 0;
    std::atomic<int> torn = 0;
    const auto isTorn = [&] {
        const long before = value;
        std::this_thread::yield();
        return value != before;
    };
    onThreads(8, [&](int thread) {
        for (int count = 0; count < 3000; ++count) {
            const int kind = (count + thread) % 5;
            if (kind == 0) queue->asyncBarrier([&] { ++value; });
            if (kind == 1) queue->syncBarrier([&] { ++value; });
            if (kind > 1) torn += queue->sync(isTorn);
            expected += kind < 2;
        }
    });
    EXPECT_EQ(queue->sync([&] { return value; }), expected);
    EXPECT_EQ(torn, 0);
}

TEST_P(QueueOfKind, LogsWhatAsynchronousBlocksThrowAndThrowsTheOthersToTheirCaller)
{
    Tests::ReplacedLog logged;
    queue->asyncBarrier([] { throw std::runtime_error("first"); });
    queue->asyncBarrier([] { throw 7; });
    Queue::main().async([] { throw std::runtime_error("main's"); });
    RunLoop::main().drain();
    EXPECT_THROW(queue->sync([] { throw std::logic_error("mine"); }), std::logic_error);
    EXPECT_THROW(queue->syncBarrier([] { throw std::logic_error("mine"); }), std::logic_error);
    EXPECT_EQ(queue->sync([] { return 5; }), 5);
    EXPECT_EQ(logged->count("tested"), 2U);
    EXPECT_EQ(logged->count("first"), 1U);
    EXPECT_EQ(logged->count("main's"), 1U);
}

TEST_P(QueueOfKind, EndsTheProcessWhenUsedSynchronouslyFromInside)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(queue->sync([&] { queue->sync([] {}); }),
                 "^platform/runtime/Queue: Fatal error: Synchronous use of queue tested from inside itself.\n$");
    EXPECT_DEATH(queue->syncBarrier([&] { queue->syncBarrier([] {}); }), "Synchronous use");
}

TEST(ConcurrentQueue, RunsReadsAndPlainBlocksInParallel)
{
    const auto queue = Queue::create("parallel", Kind::concurrent);
    Semaphore readInside(0);
    Semaphore blockInside(0);
    queue->async([&] {
        blockInside.signal();
        EXPECT_TRUE(readInside.waitFor(10s));
    });
    queue->sync([&] {
        readInside.signal();
        EXPECT_TRUE(blockInside.waitFor(10s));
    });
    queue->syncBarrier([] {});  // the block has ended
}

// A read that is nested in another queue's block must not run that queue's
// pending blocks, which may use the outer queue themselves.
TEST(ConcurrentQueue, LeavesPendingBlocksToAnotherThreadWhileInsideAQueue)
{
    const auto outer = Queue::create("outer", Kind::concurrent);
    const auto inner = Queue::create("inner", Kind::concurrent);
    int seen = 0;
    const int read = outer->sync([&] {
        inner->asyncBarrier([&] { seen = outer->sync([] { return 9; }); });
        return inner->sync([&] { return seen; });
    });
    EXPECT_EQ(read, 9);
}

TEST(ConcurrentQueue, ServesMoreThreadsAndDeeperNestingThanThereAreSlots)
{
    std::vector<std::shared_ptr<Queue>> queues;
    for (int at = 0; at < 7; ++at) queues.push_back(Queue::create("nested", Kind::concurrent));
    int writes = 0;
    std::function<void(std::size_t)> nest = [&](std::size_t depth) {
        if (depth < queues.size()) queues[depth]->sync([&] { nest(depth + 1); });
    };
    onThreads(80, [&](int thread) {
        for (int count = 0; count < 20; ++count) nest(0);
        if (thread % 8 == 0) queues[6]->asyncBarrier([&] { ++writes; });
    });
    EXPECT_EQ(queues[6]->sync([&] { return writes; }), 10);
}

TEST(Semaphore, CountsAndGivesUpInTime)
{
    Semaphore semaphore(2);
    semaphore.wait();
    EXPECT_TRUE(semaphore.waitFor(1ms));
    EXPECT_FALSE(semaphore.waitFor(1ms));
    semaphore.signal();
    int guarded = 0;
    onThreads(8, [&](int) {
        for (int count = 0; count < 2000; ++count) {
            while (!semaphore.waitFor(std::chrono::microseconds(count % 50))) {
            }
            ++guarded;
            semaphore.signal();
        }
    });
    EXPECT_EQ(guarded, 16000);
}
