#include "platform/ui/internal/ConstraintSolver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace Platform {
namespace {

// What is known of one direction: near edge, far edge, centre, length.
struct Direction {
    LayoutAttribute near, far, center, length;
    std::array<std::optional<double>, 4> known{};

    std::array<LayoutAttribute, 4> attributes() const { return {near, far, center, length}; }
};

struct Span {
    double start;
    double length;
};

constexpr Direction horizontal{LayoutAttribute::left, LayoutAttribute::right, LayoutAttribute::centerX,
                               LayoutAttribute::width};
constexpr Direction vertical{LayoutAttribute::top, LayoutAttribute::bottom, LayoutAttribute::centerY,
                             LayoutAttribute::height};

double valueIn(const Rect& rect, LayoutAttribute attribute)
{
    const std::array values{rect.minX(),     rect.maxX(),     rect.minY(),     rect.maxY(),
                            rect.center().x, rect.center().y, rect.size.width, rect.size.height};
    return values.at(static_cast<std::size_t>(attribute));
}

// The value that the constraint gives to the view's attribute; absent when it speaks of others.
std::optional<double> given(const LayoutConstraint& constraint, const View& superview, const View& view,
                            LayoutAttribute attribute)
{
    const ViewRef first = constraint.firstView(), second = constraint.secondView();
    const bool isFirst = first.get() == &view && constraint.firstAttribute() == attribute;
    const bool isSecond = second.get() == &view && constraint.secondAttribute() == attribute;
    if (isFirst && !constraint.hasSecondView()) return constraint.constant();
    if (!isFirst && !isSecond) return std::nullopt;
    const ViewRef& other = isFirst ? second : first;
    if (!other || other.get() == &view) return std::nullopt;
    const Rect place = other.get() == &superview ? superview.bounds() : other->frame();
    const double value = valueIn(place, isFirst ? constraint.secondAttribute() : constraint.firstAttribute());
    return isFirst ? value + constraint.constant() : value - constraint.constant();
}

void learn(Direction& direction, const View& holder, const View& superview, const View& view)
{
    const auto attributes = direction.attributes();
    for (const ConstraintRef& constraint : holder.constraints()) {
        for (std::size_t i = 0; i < attributes.size(); ++i) {
            const auto value = given(*constraint, superview, view, attributes[i]);
            if (value && std::isfinite(*value)) direction.known[i] = value;
        }
    }
}

Span resolved(const Direction& direction, Span present)
{
    const auto& [near, far, center, length] = direction.known;
    if (near && far) return {*near, std::max(0.0, *far - *near)};
    if (near && center) return {*near, std::max(0.0, 2 * (*center - *near))};
    if (far && center) return {2 * *center - *far, std::max(0.0, 2 * (*far - *center))};
    const double side = std::max(0.0, length.value_or(present.length));
    if (near) return {*near, side};
    if (far) return {*far - side, side};
    if (center) return {*center - side / 2, side};
    return {present.start, side};
}

// A side that nothing fixes is as long as the content asks for.
double preferred(double present, double intrinsic)
{
    return intrinsic > 0 ? intrinsic : present;
}

}  // namespace

Rect constrainedFrame(const View& superview, const View& view)
{
    Direction across = horizontal, down = vertical;
    for (const View* holder : {&superview, &view}) {
        learn(across, *holder, superview, view);
        learn(down, *holder, superview, view);
    }
    const Rect& frame = view.frame();
    const Size content = view.intrinsicContentSize();
    const Span x = resolved(across, {frame.minX(), preferred(frame.size.width, content.width)});
    const Span y = resolved(down, {frame.minY(), preferred(frame.size.height, content.height)});
    return Rect::of(x.start, y.start, x.length, y.length);
}

Size constrainedSize(const View& view)
{
    Size size = view.frame().size;
    for (const ConstraintRef& constraint : view.constraints()) {
        if (constraint->hasSecondView() || constraint->firstView().get() != &view) continue;
        if (!std::isfinite(constraint->constant())) continue;
        const double length = std::max(0.0, constraint->constant());
        if (constraint->firstAttribute() == LayoutAttribute::width) size.width = length;
        if (constraint->firstAttribute() == LayoutAttribute::height) size.height = length;
    }
    return size;
}

}  // namespace Platform
