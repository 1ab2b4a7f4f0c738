#pragma once

#include <cstddef>
#include <optional>

#include "Fennick/Point.h"

namespace Fennick::internal {

// The line through two points, ready for the distances of many others.
struct Line {
    Line(const Point& a, const Point& b);

    // The distance of a point times `length`.
    double numerator(const Point& p) const;
    double distance(const Point& p) const { return numerator(p) / length; }

    double dx;
    double dy;
    double productXY;  // b.x * a.y
    double productYX;  // b.y * a.x
    double length;
};

// The first of the farthest points strictly between two indexes, by the
// distance as the formula gives it; absent when none is farther than epsilon.
// One point after the other: the measure for every faster way.
std::optional<std::size_t> farthestPointPlain(const Point* points, std::size_t first, std::size_t last, double epsilon);

class HullTree;

// The same answer, faster; with the help of the points' hulls where there are any.
std::optional<std::size_t> farthestPoint(const Point* points, std::size_t first, std::size_t last, double epsilon,
                                         const HullTree* hulls = nullptr);

// The largest numerator seen so far.
struct Largest {
    double numerator = 0;
    std::size_t searchFrom = 0;  // no point before it can tie with the largest

    // Takes in the largest of the points from an index on; to be called in their order.
    void add(double candidate, std::size_t from);
};

// The largest numerator of count points, at least 0; what is not a number is passed over.
using LargestNumerator = double (*)(const Line&, const Point* points, std::size_t count);
double largestNumeratorScalar(const Line& line, const Point* points, std::size_t count);
// The fastest that this processor runs.
LargestNumerator largestNumerator();

}  // namespace Fennick::internal
