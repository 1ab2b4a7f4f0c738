#pragma once

#include <array>
#include <vector>

#include "platform/ui/Geometry.h"

namespace Platform {

// The kinds of steps that outlines are made of, with their platform numbers.
enum class PathElementKind { moveTo = 0, lineTo = 1, curveTo = 2, closePath = 3, quadraticCurveTo = 4 };

// One step of an outline: a cubic curve has two control points and its end, a
// quadratic one control point and its end; what a kind does not use stays zero.
struct PathElement {
    PathElementKind kind = PathElementKind::moveTo;
    std::array<Point, 3> points{};
    friend bool operator==(const PathElement&, const PathElement&) = default;
};

// A plain outline: its steps in order, nothing else. A value.
class GraphicsPath {
public:
    void moveTo(Point point) { elements_.push_back({PathElementKind::moveTo, {point}}); }
    void addLineTo(Point point) { elements_.push_back({PathElementKind::lineTo, {point}}); }
    void addCurveTo(Point end, Point control1, Point control2)
    {
        elements_.push_back({PathElementKind::curveTo, {control1, control2, end}});
    }
    void addQuadraticCurveTo(Point end, Point control)
    {
        elements_.push_back({PathElementKind::quadraticCurveTo, {control, end}});
    }
    void append(const PathElement& element) { elements_.push_back(element); }
    void closeSubpath() { elements_.push_back({PathElementKind::closePath, {}}); }

    const std::vector<PathElement>& elements() const { return elements_; }
    bool isEmpty() const { return elements_.empty(); }
    friend bool operator==(const GraphicsPath&, const GraphicsPath&) = default;

private:
    std::vector<PathElement> elements_;
};

}  // namespace Platform
