#include "examples/pellora/menubar/GraphView.h"

#include "Lorrel/menubar/MenuBar.h"
#include "examples/pellora/menubar/GraphPoints.h"
#include "platform/ui/BezierPath.h"
#include "platform/ui/GraphicsContext.h"

namespace Pellora {

void GraphView::setHistory(std::span<const Platform::Number> history)
{
    auto points = graphPoints(history, area().size.width, area().size.height);
    if (points == points_) return;
    points_ = std::move(points);
    setNeedsDisplay(true);
}

void GraphView::draw(const Platform::Rect& /*dirtyRect*/)
{
    Platform::GraphicsContext* const context = Platform::GraphicsContext::current();
    if (!context || points_.empty()) return;
    const Platform::Rect inside = area();
    Platform::BezierPath line;
    line.move({inside.minX() + points_.front().x, inside.minY() + points_.front().y});
    for (const auto& point : points_) line.line({inside.minX() + point.x, inside.minY() + point.y});
    Platform::BezierPath below = line;
    below.line({inside.maxX(), inside.maxY()}).line({inside.minX(), inside.maxY()}).close();

    const Platform::Color color = Lorrel::menuBarTextColor();
    context->setFillColor(color.withAlpha(0.3));
    below.fill();
    context->setStrokeColor(color);
    line.stroke();
}

}  // namespace Pellora
