#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "benchmarks/Report.h"

namespace Bench {

// Somebody's way to do the work. The loop around it is compiled with the work,
// so that a call of a few nanoseconds is not hidden by the cost of reaching it.
struct Contestant {
    template <typename Body>
    Contestant(std::string itsName, Body body)
        : name(std::move(itsName)), run([body](long times) mutable {
              while (times-- > 0) body();
          })
    {
    }

    std::string name;
    std::function<void(long times)> run;
};

// Keeps a result from being optimised away.
template <typename T>
void keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

inline double nanosecondsEach(const Contestant& contestant, long times)
{
    const auto start = std::chrono::steady_clock::now();
    contestant.run(times);
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
    return spent.count() / static_cast<double>(times);
}

// The contestants' median nanoseconds over rounds in which they take turns, so
// that a noisy machine is noisy for all of them. Short works are repeated within
// a turn. What comes first in a turn does not count: it meets the caches as the
// one before left them, which may have been a whole program.
inline std::vector<double> medians(const std::vector<Contestant>& contestants, int rounds)
{
    constexpr double shortestTurn = 5e6;
    std::vector<long> times;
    for (const auto& contestant : contestants) {
        const double once = std::max(nanosecondsEach(contestant, 1), 1.0);
        times.push_back(std::max(1L, static_cast<long>(shortestTurn / once)));
    }
    std::vector<std::vector<double>> spent(contestants.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) {
            contestants[i].run(1);
            spent[i].push_back(nanosecondsEach(contestants[i], times[i]));
        }
    }
    std::vector<double> middle;
    for (auto& own : spent) middle.push_back(median(std::move(own)));
    return middle;
}

// Reports the first, which is ours, beside each of the others; alone it is a figure.
inline void compare(const std::string& what, const std::vector<Contestant>& contestants, int rounds = 11)
{
    const auto spent = medians(contestants, rounds);
    if (contestants.size() == 1) figure(what, spent[0], "ns");
    for (std::size_t i = 1; i < contestants.size(); ++i) ratio(what, contestants[i].name, spent[0], spent[i], "ns");
}

// Reports what each costs at this size.
inline void curve(const std::string& title, double size, const std::vector<Contestant>& contestants, int rounds = 7)
{
    const auto spent = medians(contestants, rounds);
    for (std::size_t i = 0; i < contestants.size(); ++i) point(title, contestants[i].name, size, spent[i]);
}

}  // namespace Bench
