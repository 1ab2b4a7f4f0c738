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

constexpr int calls = 4'000;

int value = 0;

template <typename Mutex>
double lockedOnThreads(unsigned threads)
{
    Mutex mutex;
    const auto body = [&] {
        const std::lock_guard lock(mutex);
        keep(value);
    };
    return nanosecondsOnThreads(threads, body, calls);
}

template <typename Mutex>
double sharedOnThreads(unsigned threads)
{
    Mutex mutex;
    const auto body = [&] {
        mutex.lock_shared();
        keep(value);
        mutex.unlock_shared();
    };
    return nanosecondsOnThreads(threads, body, calls);
}

double queueOnThreads(unsigned threads)
{
    const auto queue = Platform::Queue::create("bench", Platform::Queue::Kind::concurrent);
    const auto body = [&] { queue->sync([] { keep(value); }); };
    return nanosecondsOnThreads(threads, body, calls);
}

void compareWriteThenRead()
{
    const auto queue = Platform::Queue::create("bench", Platform::Queue::Kind::concurrent);
    boost::asio::thread_pool pool(1);
    auto strand = boost::asio::make_strand(pool);
    const Contestant ours("Queue", [&] {
        queue->asyncBarrier([] { ++value; });
        keep(queue->sync([] { return value; }));
    });
    const char* what = "asynchronous write then read";
    compare(what, {ours, {"Boost.Asio strand", [&] {
                              std::promise<int> read;
                              boost::asio::post(strand, [] { ++value; });
                              boost::asio::post(strand, [&] { read.set_value(value); });
                              keep(read.get_future().get());
                          }}});
    compare(std::string(what) + " in all", {ours});
}

}  // namespace

void locks()
{
    const double one = queueOnThreads(1);
    ratio("queue read on 1 thread", "std::mutex", one, lockedOnThreads<std::mutex>(1), "ns");
    ratio("queue read on 1 thread", "std::shared_mutex", one, sharedOnThreads<std::shared_mutex>(1), "ns");
    ratio("queue read on 1 thread", "tbb::spin_rw_mutex", one, sharedOnThreads<tbb::spin_rw_mutex>(1), "ns");
    const double two = queueOnThreads(2);
    ratio("queue read on 2 threads", "std::shared_mutex", two, sharedOnThreads<std::shared_mutex>(2), "ns");
    ratio("queue read on 2 threads", "tbb::spin_rw_mutex", two, sharedOnThreads<tbb::spin_rw_mutex>(2), "ns");
    ratio("queue read on 2 threads", "std::mutex", two, lockedOnThreads<std::mutex>(2), "ns");
    compareWriteThenRead();
}

}  // namespace Bench
