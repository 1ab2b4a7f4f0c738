#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <limits>
#include <thread>
#include <vector>

#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include "benchmarks/Interleaved.h"

namespace Bench {

// The processors that this program may use, as it was started.
inline const cpu_set_t& allowedProcessors()
{
    static const cpu_set_t allowed = [] {
        cpu_set_t set;
        CPU_ZERO(&set);
        sched_getaffinity(getpid(), sizeof set, &set);
        return set;
    }();
    return allowed;
}

inline void pinTo(unsigned at)
{
    const cpu_set_t& allowed = allowedProcessors();
    unsigned left = at % static_cast<unsigned>(CPU_COUNT(&allowed));
    unsigned core = 0;
    while (!CPU_ISSET(core, &allowed) || left-- > 0) ++core;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(core, &one);
    pthread_setaffinity_np(pthread_self(), sizeof one, &one);
}

// Processor time of the calling thread, which other programs do not lengthen.
inline double threadNanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

// Several threads that begin each run together, without sleeping on the way.
class StartingLine {
public:
    explicit StartingLine(unsigned threads) : threads_(threads) {}

    void await()
    {
        const unsigned goal = (arrived_++ / threads_ + 1) * threads_;
        while (arrived_.load() < goal) __builtin_ia32_pause();
    }

private:
    const unsigned threads_;
    std::atomic<unsigned> arrived_ = 0;
};

// The same on several pinned threads at once. Only the runs count in which every
// thread had a processor of its own from start to end: where the machine took one
// away, the others met no contention. The median of those; not a number if there are none.
template <typename Body>
double nanosecondsOnThreads(unsigned threads, const Body& body, int calls)
{
    using Time = std::chrono::steady_clock;
    constexpr unsigned runs = 2000;  // short ones, so that some are left alone on a busy machine
    constexpr double mostLost = 1.03;
    std::vector<double> spent(runs * threads);
    std::vector<char> isUndisturbed(runs * threads);
    StartingLine line(threads);
    {
        std::vector<std::jthread> running;
        for (unsigned at = 0; at < threads; ++at) {
            running.emplace_back([&, at] {
                pinTo(at);
                for (unsigned run = 0; run < runs; ++run) {
                    line.await();
                    const auto start = Time::now();
                    const double processor = threadNanoseconds();
                    for (int count = 0; count < calls; ++count) body();
                    const double used = threadNanoseconds() - processor;
                    const std::chrono::duration<double, std::nano> wall = Time::now() - start;
                    spent[run * threads + at] = used / calls;
                    isUndisturbed[run * threads + at] = wall.count() < used * mostLost + 1000;
                }
            });
        }
    }
    std::vector<double> counted;
    for (unsigned run = 0; run < runs; ++run) {
        const auto begin = isUndisturbed.begin() + run * threads;
        if (std::find(begin, begin + threads, 0) != begin + threads) continue;
        counted.insert(counted.end(), &spent[run * threads], &spent[run * threads] + threads);
    }
    if (counted.empty()) return std::numeric_limits<double>::quiet_NaN();
    return median(std::move(counted));
}

void locks();
void lookups();
void readings();
void texts();
// Compares our texts with the library's on millions of numbers; how many differ.
int textProof();
void growth();

}  // namespace Bench
