#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace Bench {

using Work = std::function<void()>;

inline double milliseconds(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The median times of works that take turns, so that whatever else the machine
// does falls on all alike; after one turn that does not count.
inline std::vector<double> medians(const std::vector<Work>& works, int rounds)
{
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round <= rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const double time = milliseconds(works[i]);
            if (round > 0) times[i].push_back(time);
        }
    }
    std::vector<double> middle;
    for (auto& own : times) {
        std::nth_element(own.begin(), own.begin() + static_cast<long>(own.size() / 2), own.end());
        middle.push_back(own[own.size() / 2]);
    }
    return middle;
}

struct Peer {
    const char* name;
    Work work;
};

// Runs ours and its peers in turns; prints times and each peer's time over ours.
inline void compare(const char* what, const Work& ours, const std::vector<Peer>& peers, int rounds)
{
    std::vector<Work> works = {ours};
    for (const Peer& peer : peers) works.push_back(peer.work);
    const auto times = medians(works, rounds);
    std::printf("%-34s ours %32.4f ms\n", what, times[0]);
    for (std::size_t i = 0; i < peers.size(); ++i) {
        std::printf("%-34s %-28s %8.4f ms  %5.2f of ours\n", what, peers[i].name, times[i + 1],
                    times[i + 1] / times[0]);
    }
}

}  // namespace Bench
