#include "examples/pellora/menubar/GraphPoints.h"

#include <algorithm>

#include "Fennick/RamerDouglasPeucker.h"

namespace Pellora {

namespace {

constexpr double visible = 0.25;  // points of the screen

}  // namespace

std::vector<Fennick::Point> graphPoints(std::span<const Platform::Number> history, double width, double height)
{
    if (history.size() < 2) return {};
    const double step = width / static_cast<double>(history.size() - 1);
    std::vector<Fennick::Point> points;
    for (const auto& number : history) {
        const double share = std::clamp(number.doubleValue() / 100, 0.0, 1.0);
        points.push_back({step * static_cast<double>(points.size()), height * (1 - share)});
    }
    return Fennick::RamerDouglasPeucker::simplify(points, visible);
}

}  // namespace Pellora
