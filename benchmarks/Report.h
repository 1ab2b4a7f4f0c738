#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

// What a benchmark found, one line each with tabs between the fields. The
// command "bench" reads these lines and sets the goals of goals.csv beside them.
namespace Bench {

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Two costs of the same work, taken in turns.
inline void ratio(const std::string& what, const std::string& peer, double ours, double theirs, const char* unit)
{
    std::printf("ratio\t%s\t%s\t%.6g\t%.6g\t%s\n", what.c_str(), peer.c_str(), ours, theirs, unit);
    std::fflush(stdout);
}

// A cost that has no peer, only a bound.
inline void figure(const std::string& what, double value, const char* unit)
{
    std::printf("figure\t%s\t%.6g\t%s\n", what.c_str(), value, unit);
    std::fflush(stdout);
}

// One point of a curve: what something costs at a size. Curves with the same title share a plot.
inline void point(const std::string& title, const std::string& curve, double size, double nanoseconds)
{
    std::printf("point\t%s\t%s\t%.0f\t%.6g\n", title.c_str(), curve.c_str(), size, nanoseconds);
    std::fflush(stdout);
}

}  // namespace Bench
