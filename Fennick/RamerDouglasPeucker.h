#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <vector>

#include "Fennick/Point.h"
#include "platform/runtime/CGFloat.h"

namespace Fennick {

// Thins a polyline to the points that matter for its shape, by perpendicular
// distance (the Ramer-Douglas-Peucker algorithm). Any thread.
class RamerDouglasPeucker {
public:
    RamerDouglasPeucker() = delete;

    // The kept points in input order: the ends, and where a stretch departs from
    // the line through its ends by more than epsilon, its farthest point (the
    // first of equals). Where the ends of a stretch coincide, the first point off
    // them counts as infinitely far. Nothing when epsilon is negative or not a number.
    static std::vector<Point> simplify(std::span<const Point> points, double epsilon);
};

// A series of numbers as the polyline (index, value), thinned with tolerance 1:
// the values that are left. Whole results are cut toward zero and clamped to 64 bits.
std::vector<long> simplified(std::span<const long> values);
std::vector<long long> simplified(std::span<const long long> values);
std::vector<double> simplified(std::span<const double> values);
std::vector<Platform::CGFloat> simplified(std::span<const Platform::CGFloat> values);

template <typename T>
requires std::same_as<T, long> || std::same_as<T, long long> || std::same_as<T, double> ||
    std::same_as<T, Platform::CGFloat>
        std::vector<T> simplified(const std::vector<T>& values)
{
    return simplified(std::span<const T>(values));
}

}  // namespace Fennick
