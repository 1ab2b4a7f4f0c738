#pragma once

#include <algorithm>
#include <barrier>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <limits>
#include <thread>
#include <vector>

#include <benchmark/benchmark.h>
#include <pthread.h>

namespace Bench {

inline void pinTo(unsigned core)
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(core % std::thread::hardware_concurrency(), &cores);
    pthread_setaffinity_np(pthread_self(), sizeof cores, &cores);
}

// Nanoseconds for one call: the best of several runs, which is the one that the
// rest of the machine disturbed least.
template <typename Body>
double nanoseconds(const Body& body, int calls, int runs = 15)
{
    using Time = std::chrono::steady_clock;
    double best = std::numeric_limits<double>::max();
    while (runs-- > 0) {
        const auto start = Time::now();
        for (int count = 0; count < calls; ++count) body();
        const std::chrono::duration<double, std::nano> spent = Time::now() - start;
        best = std::min(best, spent.count() / calls);
    }
    return best;
}

// Processor time of the calling thread, which other programs do not lengthen.
inline double threadNanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

// The same on several pinned threads at once: processor time for one call. The
// median of many runs, each begun together, because a run in
// which the machine kept the threads apart shows no contention.
template <typename Body>
double nanosecondsOnThreads(unsigned threads, const Body& body, int calls)
{
    constexpr int runs = 21;
    std::vector<double> times(runs * threads);
    std::barrier together(static_cast<std::ptrdiff_t>(threads));
    {
        std::vector<std::jthread> running;
        for (unsigned at = 0; at < threads; ++at) {
            running.emplace_back([&, at] {
                pinTo(at);
                for (unsigned run = 0; run < runs; ++run) {
                    together.arrive_and_wait();
                    const double start = threadNanoseconds();
                    for (int count = 0; count < calls; ++count) body();
                    times[run * threads + at] = (threadNanoseconds() - start) / calls;
                }
            });
        }
    }
    std::nth_element(times.begin(), times.begin() + runs * threads / 2, times.end());
    return times[runs * threads / 2];
}

inline void row(const char* what, const char* peer, double ours, double theirs, const char* goal)
{
    std::printf("%-44s %10.1f ns  %-34s %10.1f ns  %7.2f x  (goal %s)\n", what, ours, peer, theirs, theirs / ours,
                goal);
}

void locks();
void lookups();
void readings();
void texts();
void growth();

}  // namespace Bench
