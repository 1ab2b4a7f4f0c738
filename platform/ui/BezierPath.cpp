#include "platform/ui/BezierPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/ui/GraphicsContext.h"

namespace Platform {
namespace {

// How far the control points of a quarter of an ellipse lie from its ends, as
// a part of the radius: 4/3 (sqrt 2 - 1), the usual closest cubic.
constexpr double quarterHandle = 0.5522847498307936;
// An arc is drawn in pieces of at most a quarter of a circle.
constexpr double largestPiece = std::numbers::pi / 2;

double limitedRadius(double radius, double side)
{
    return radius > 0 ? std::min(radius, side / 2) : 0;
}

Point onCircle(Point center, double radius, double angle)
{
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

Point alongTangent(Point point, double radius, double angle, double length)
{
    return {point.x - radius * length * std::sin(angle), point.y + radius * length * std::cos(angle)};
}

void addArcPiece(BezierPath& path, Point center, double radius, double from, double to)
{
    const double handle = 4.0 / 3 * std::tan((to - from) / 4);
    const Point start = onCircle(center, radius, from);
    const Point end = onCircle(center, radius, to);
    path.curve(end, alongTangent(start, radius, from, handle), alongTangent(end, radius, to, -handle));
}

}  // namespace

BezierPath BezierPath::rect(const Rect& rect)
{
    BezierPath path;
    path.move(rect.origin).line({rect.maxX(), rect.minY()}).line({rect.maxX(), rect.maxY()});
    path.line({rect.minX(), rect.maxY()}).close();
    return path;
}

BezierPath BezierPath::oval(const Rect& rect)
{
    return roundedRect(rect, rect.size.width / 2, rect.size.height / 2);
}

BezierPath BezierPath::roundedRect(const Rect& r, double xRadius, double yRadius)
{
    const double rx = limitedRadius(xRadius, r.size.width);
    const double ry = limitedRadius(yRadius, r.size.height);
    if (rx == 0 || ry == 0) return rect(r);
    const double kx = rx * (1 - quarterHandle);
    const double ky = ry * (1 - quarterHandle);
    const double left = r.minX(), right = r.maxX(), top = r.minY(), bottom = r.maxY();
    BezierPath path;
    path.move({left + rx, top}).line({right - rx, top});
    path.curve({right, top + ry}, {right - kx, top}, {right, top + ky}).line({right, bottom - ry});
    path.curve({right - rx, bottom}, {right, bottom - ky}, {right - kx, bottom}).line({left + rx, bottom});
    path.curve({left, bottom - ry}, {left + kx, bottom}, {left, bottom - ky}).line({left, top + ry});
    path.curve({left + rx, top}, {left, top + ky}, {left + kx, top}).close();
    return path;
}

BezierPath BezierPath::arc(Point center, double radius, double startDegrees, double sweepDegrees)
{
    BezierPath path;
    const double start = startDegrees * std::numbers::pi / 180;
    const double sweep = sweepDegrees * std::numbers::pi / 180;
    path.move(onCircle(center, radius, start));
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / largestPiece - 1e-9)));
    for (int i = 0; i < pieces; ++i) {
        addArcPiece(path, center, radius, start + sweep * i / pieces, start + sweep * (i + 1) / pieces);
    }
    return path;
}

BezierPath& BezierPath::move(Point point)
{
    outline_.moveTo(point);
    return *this;
}

BezierPath& BezierPath::line(Point point)
{
    outline_.addLineTo(point);
    return *this;
}

BezierPath& BezierPath::curve(Point end, Point control1, Point control2)
{
    outline_.addCurveTo(end, control1, control2);
    return *this;
}

BezierPath& BezierPath::quadraticCurve(Point end, Point control)
{
    outline_.addQuadraticCurveTo(end, control);
    return *this;
}

BezierPath& BezierPath::close()
{
    outline_.closeSubpath();
    return *this;
}

BezierPath& BezierPath::append(const BezierPath& other)
{
    for (const PathElement& element : other.elements()) outline_.append(element);
    return *this;
}

void BezierPath::fill() const
{
    if (auto* context = GraphicsContext::current()) context->fill(*this);
}

void BezierPath::stroke() const
{
    if (auto* context = GraphicsContext::current()) context->stroke(*this);
}

void BezierPath::addClip() const
{
    if (auto* context = GraphicsContext::current()) context->clip(*this);
}

}  // namespace Platform
