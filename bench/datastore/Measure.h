#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
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

// The same on several pinned threads at once: nanoseconds for one call of each
// thread, over one long run, so that the threads really meet.
template <typename Body>
double nanosecondsOnThreads(unsigned threads, const Body& body, int calls)
{
    std::vector<double> times(threads);
    std::atomic<unsigned> waiting = threads;
    {
        std::vector<std::jthread> running;
        for (unsigned at = 0; at < threads; ++at) {
            running.emplace_back([&, at] {
                pinTo(at);
                --waiting;
                while (waiting > 0) {
                }
                times[at] = nanoseconds(body, calls, 1);
            });
        }
    }
    return *std::max_element(times.begin(), times.end());
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
