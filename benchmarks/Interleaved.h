#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace Bench {

struct Contestant {
    std::string name;
    std::function<void()> run;
};

// Keeps a result from being optimised away.
template <typename T>
void keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

inline double secondsOf(const std::function<void()>& run, long repetitions)
{
    const auto start = std::chrono::steady_clock::now();
    for (long i = 0; i < repetitions; ++i) run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() /
           static_cast<double>(repetitions);
}

// Runs the contestants in turns, so that a noisy machine is noisy for all of
// them, and prints the median time of each and its ratio to the first.
inline void compare(const char* title, const std::vector<Contestant>& contestants, int rounds = 11)
{
    constexpr double shortest = 0.005;
    std::vector<long> repetitions;
    for (const auto& contestant : contestants) {
        const double once = std::max(secondsOf(contestant.run, 1), 1e-9);
        repetitions.push_back(std::max(1L, static_cast<long>(shortest / once)));
    }
    std::vector<std::vector<double>> times(contestants.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) {
            times[i].push_back(secondsOf(contestants[i].run, repetitions[i]));
        }
    }
    std::printf("%s\n", title);
    double ours = 0;
    for (std::size_t i = 0; i < contestants.size(); ++i) {
        std::nth_element(times[i].begin(), times[i].begin() + rounds / 2, times[i].end());
        const double median = times[i][static_cast<std::size_t>(rounds / 2)];
        if (i == 0) ours = median;
        std::printf("  %-34s %14.1f ns  x %.2f\n", contestants[i].name.c_str(), median * 1e9, median / ours);
    }
    std::fflush(stdout);
}

}  // namespace Bench
