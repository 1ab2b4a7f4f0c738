#include "Fennick/RamerDouglasPeucker.h"

#include <limits>

#include "Fennick/internal/FarthestPoint.h"

namespace Fennick {

namespace {

template <typename Value>
Value wholeOf(double value)
{
    constexpr double limit = 0x1p63;
    if (value >= limit) return std::numeric_limits<Value>::max();
    return static_cast<Value>(value);
}

template <typename Value>
std::vector<Value> thinned(std::span<const Value> values)
{
    std::vector<Point> points;
    points.reserve(values.size());
    for (const Value value : values) points.push_back({static_cast<double>(points.size()), static_cast<double>(value)});

    std::vector<Value> result;
    for (const Point& point : RamerDouglasPeucker::simplify(points, 1.0)) {
        if constexpr (std::integral<Value>) {
            result.push_back(wholeOf<Value>(point.y));
        } else {
            result.push_back(Value(point.y));
        }
    }
    return result;
}

}  // namespace

std::vector<Point> RamerDouglasPeucker::simplify(std::span<const Point> points, double epsilon)
{
    if (points.empty() || !(epsilon >= 0)) return {};
    std::vector<Point> result{points.front()};
    // Ends of the stretches still to do, the nearest on top; each begins where the one before it ended.
    std::vector<std::size_t> ends;
    if (points.size() > 1) ends.push_back(points.size() - 1);
    std::size_t first = 0;
    while (!ends.empty()) {
        const std::size_t last = ends.back();
        if (const auto split = internal::farthestPoint(points.data(), first, last, epsilon)) {
            ends.push_back(*split);
            continue;
        }
        result.push_back(points[last]);
        first = last;
        ends.pop_back();
    }
    return result;
}

std::vector<long> simplified(std::span<const long> values)
{
    return thinned(values);
}

std::vector<long long> simplified(std::span<const long long> values)
{
    return thinned(values);
}

std::vector<double> simplified(std::span<const double> values)
{
    return thinned(values);
}

std::vector<Platform::CGFloat> simplified(std::span<const Platform::CGFloat> values)
{
    return thinned(values);
}

}  // namespace Fennick
