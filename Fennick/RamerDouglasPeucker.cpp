#include "Fennick/RamerDouglasPeucker.h"

#include <bit>
#include <limits>
#include <optional>

#include "Fennick/internal/FarthestPoint.h"
#include "Fennick/internal/HullTree.h"

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

// Looks at every point until that has become more work than balanced splits
// need; from then on at hulls.
class Splitter {
public:
    Splitter(std::span<const Point> points, double epsilon) : points_(points), epsilon_(epsilon)
    {
        budget_ = 8 * points.size() * static_cast<std::size_t>(std::bit_width(points.size()));
    }

    std::optional<std::size_t> split(std::size_t first, std::size_t last)
    {
        work_ += last - first;
        if (work_ > budget_ && !hasAskedForHulls_) {
            hasAskedForHulls_ = true;
            hulls_ = internal::HullTree::over(points_);
        }
        return internal::farthestPoint(points_.data(), first, last, epsilon_, hulls_ ? &*hulls_ : nullptr);
    }

private:
    std::span<const Point> points_;
    double epsilon_;
    std::size_t budget_;
    std::size_t work_ = 0;
    bool hasAskedForHulls_ = false;
    std::optional<internal::HullTree> hulls_;
};

}  // namespace

std::vector<Point> RamerDouglasPeucker::simplify(std::span<const Point> points, double epsilon)
{
    if (points.empty() || !(epsilon >= 0)) return {};
    std::vector<Point> result{points.front()};
    // Ends of the stretches still to do, the nearest on top; each begins where the one before it ended.
    std::vector<std::size_t> ends;
    if (points.size() > 1) ends.push_back(points.size() - 1);
    Splitter splitter(points, epsilon);
    std::size_t first = 0;
    while (!ends.empty()) {
        const std::size_t last = ends.back();
        if (const auto split = splitter.split(first, last)) {
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
