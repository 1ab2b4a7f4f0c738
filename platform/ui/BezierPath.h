#pragma once

#include "platform/ui/GraphicsPath.h"

namespace Platform {

enum class WindingRule { nonZero = 0, evenOdd = 1 };
enum class LineCap { butt, round };

// An outline with the way it is filled and stroked. A value. Drawing goes to
// the thread's current graphics context; without one nothing is drawn.
class BezierPath {
public:
    BezierPath() = default;
    static BezierPath rect(const Rect& rect);
    static BezierPath oval(const Rect& rect);
    // Radii beyond half a side are cut to it; negative ones, and those that are not numbers, count as 0.
    static BezierPath roundedRect(const Rect& rect, double xRadius, double yRadius);
    // Part of a circle, in degrees, clockwise from the right.
    static BezierPath arc(Point center, double radius, double startDegrees, double sweepDegrees);

    BezierPath& move(Point point);
    BezierPath& line(Point point);
    BezierPath& curve(Point end, Point control1, Point control2);
    BezierPath& quadraticCurve(Point end, Point control);
    BezierPath& close();
    BezierPath& append(const BezierPath& other);

    const std::vector<PathElement>& elements() const { return outline_.elements(); }
    const GraphicsPath& outline() const { return outline_; }

    WindingRule windingRule() const { return windingRule_; }
    void setWindingRule(WindingRule rule) { windingRule_ = rule; }
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { lineWidth_ = width; }
    LineCap lineCap() const { return lineCap_; }
    void setLineCap(LineCap cap) { lineCap_ = cap; }

    void fill() const;
    void stroke() const;
    // Narrows the current context's clip to the inside.
    void addClip() const;

    friend bool operator==(const BezierPath&, const BezierPath&) = default;

private:
    GraphicsPath outline_;
    WindingRule windingRule_ = WindingRule::nonZero;
    double lineWidth_ = 1;
    LineCap lineCap_ = LineCap::butt;
};

}  // namespace Platform
