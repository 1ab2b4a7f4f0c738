// Thinning a polyline beside Boost.Geometry's simplify.
#include <cmath>
#include <random>
#include <vector>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/point_xy.hpp>

#include "Fennick/RamerDouglasPeucker.h"
#include "benchmarks/Interleaved.h"

namespace {

using Fennick::Point;
using Fennick::RamerDouglasPeucker;
using Line = boost::geometry::model::linestring<boost::geometry::model::d2::point_xy<double>>;
using Series = std::vector<Point>;

Series randomWalk(std::size_t count)
{
    std::mt19937 random(1);
    std::normal_distribution<double> step;
    Series series;
    double y = 0;
    for (std::size_t i = 0; i < count; ++i) series.push_back({static_cast<double>(i), y += step(random)});
    return series;
}

Series noisySine(std::size_t count)
{
    std::mt19937 random(2);
    std::normal_distribution<double> noise(0, 0.3);
    Series series;
    for (std::size_t i = 0; i < count; ++i) {
        series.push_back({static_cast<double>(i), 100 * std::sin(static_cast<double>(i) / 1e4) + noise(random)});
    }
    return series;
}

// Each spike lower than the one before: every split cuts off one point.
Series spikes(std::size_t count)
{
    Series series;
    for (std::size_t i = 0; i < count; ++i) {
        series.push_back({static_cast<double>(i), i % 2 ? 10.0 * static_cast<double>(count - i) : 0});
    }
    return series;
}

void compare(const char* title, const Series& series, double epsilon, bool withPeer = true)
{
    Line line;
    for (const Point& point : series) line.emplace_back(point.x, point.y);
    std::vector<Bench::Contestant> contestants = {
        {"Fennick", [&] { Bench::keep(RamerDouglasPeucker::simplify(series, epsilon).size()); }}};
    if (withPeer) {
        contestants.push_back({"Boost.Geometry", [&] {
                                   Line kept;
                                   boost::geometry::simplify(line, kept, epsilon);
                                   Bench::keep(kept.size());
                               }});
    }
    Bench::compare(title, contestants, 5);
}

}  // namespace

int main()
{
    compare("random walk, 1,000,000 points, tolerance 1", randomWalk(1'000'000), 1);
    compare("sine with noise, 1,000,000 points, tolerance 1", noisySine(1'000'000), 1);
    compare("history of 60, tolerance 1", randomWalk(60), 1);
    compare("spikes, 10,000 points, tolerance 1", spikes(10'000), 1);
    compare("spikes, 100,000 points, tolerance 1 (the peer needs over 15 s)", spikes(100'000), 1, false);
}
