#include <condition_variable>
#include <future>
#include <mutex>
#include <shared_mutex>

#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/thread_pool.hpp>
#include <tbb/spin_rw_mutex.h>

#include "benchmarks/datastore/Measure.h"
#include "platform/runtime/Queue.h"

namespace Bench {

namespace {

constexpr int calls = 20'000;

int value = 0;

template <typename Mutex>
double lockedOnThreads(unsigned threads)
{
    Mutex mutex;
    const auto body = [&] {
        const std::lock_guard lock(mutex);
        benchmark::DoNotOptimize(value);
    };
    return nanosecondsOnThreads(threads, body, calls);
}

template <typename Mutex>
double sharedOnThreads(unsigned threads)
{
    Mutex mutex;
    const auto body = [&] {
        mutex.lock_shared();
        benchmark::DoNotOptimize(value);
        mutex.unlock_shared();
    };
    return nanosecondsOnThreads(threads, body, calls);
}

double queueOnThreads(unsigned threads)
{
    const auto queue = Platform::Queue::create("bench", Platform::Queue::Kind::concurrent);
    const auto body = [&] { queue->sync([] { benchmark::DoNotOptimize(value); }); };
    return nanosecondsOnThreads(threads, body, calls);
}

double writeThenReadOnQueue()
{
    const auto queue = Platform::Queue::create("bench", Platform::Queue::Kind::concurrent);
    return nanoseconds(
        [&] {
            queue->asyncBarrier([] { ++value; });
            benchmark::DoNotOptimize(queue->sync([] { return value; }));
        },
        20'000);
}

double writeThenReadOnStrand()
{
    boost::asio::thread_pool pool(1);
    auto strand = boost::asio::make_strand(pool);
    return nanoseconds(
        [&] {
            std::promise<int> read;
            boost::asio::post(strand, [] { ++value; });
            boost::asio::post(strand, [&] { read.set_value(value); });
            benchmark::DoNotOptimize(read.get_future().get());
        },
        2'000);
}

}  // namespace

void locks()
{
    const double one = queueOnThreads(1);
    row("queue read, 1 thread", "std::mutex", one, lockedOnThreads<std::mutex>(1), "1");
    row("queue read, 1 thread", "std::shared_mutex", one, sharedOnThreads<std::shared_mutex>(1), "-");
    row("queue read, 1 thread", "tbb::spin_rw_mutex", one, sharedOnThreads<tbb::spin_rw_mutex>(1), "-");
    const double two = queueOnThreads(2);
    row("queue read, 2 threads", "std::shared_mutex", two, sharedOnThreads<std::shared_mutex>(2), "8");
    row("queue read, 2 threads", "tbb::spin_rw_mutex", two, sharedOnThreads<tbb::spin_rw_mutex>(2), "4");
    row("queue read, 2 threads", "std::mutex", two, lockedOnThreads<std::mutex>(2), "-");
    row("asynchronous write, then read", "Boost.Asio strand", writeThenReadOnQueue(), writeThenReadOnStrand(),
        "20, at most 250 ns");
}

}  // namespace Bench
