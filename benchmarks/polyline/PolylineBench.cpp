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

constexpr double tolerance = 1;

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

Line lineOf(const Series& series)
{
    Line line;
    for (const Point& point : series) line.emplace_back(point.x, point.y);
    return line;
}

Bench::Contestant ours(const std::string& name, const Series& series)
{
    return {name, [&series] { Bench::keep(RamerDouglasPeucker::simplify(series, tolerance).size()); }};
}

Bench::Contestant boost(const std::string& name, const Line& line)
{
    return {name, [&line] {
                Line kept;
                boost::geometry::simplify(line, kept, tolerance);
                Bench::keep(kept.size());
            }};
}

void compare(const char* what, const Series& series)
{
    const Line line = lineOf(series);
    Bench::compare(what, {ours("Fennick", series), boost("Boost.Geometry", line)}, 7);
}

void growth()
{
    constexpr const char* title = "polyline by points";
    for (const std::size_t count : {1'000, 10'000, 100'000, 1'000'000}) {
        const Series walk = randomWalk(count);
        const Line line = lineOf(walk);
        Bench::curve(title, static_cast<double>(count),
                     {ours("random walk", walk), boost("random walk: Boost.Geometry", line)});
    }
    for (const std::size_t count : {1'000, 3'000, 10'000}) {
        const Series worst = spikes(count);
        const Line line = lineOf(worst);
        Bench::curve(title, static_cast<double>(count), {ours("spikes", worst), boost("spikes: Boost.Geometry", line)});
    }
    const Series worst = spikes(100'000);  // the peer would need over 15 s
    Bench::curve(title, 1e5, {ours("spikes", worst)});
}

}  // namespace

int main()
{
    compare("random walk of 1000000 points", randomWalk(1'000'000));
    compare("sine with noise of 1000000 points", noisySine(1'000'000));
    compare("history of 60 points", randomWalk(60));
    compare("spikes of 10000 points", spikes(10'000));
    const Series worst = spikes(100'000);
    Bench::compare("spikes of 100000 points", {ours("Fennick", worst)}, 7);
    growth();
}
