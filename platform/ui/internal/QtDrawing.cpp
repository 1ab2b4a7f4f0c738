#include "platform/ui/internal/QtDrawing.h"

#include <utility>

namespace Platform {
namespace {

QPointF qtPoint(Point point)
{
    return {point.x, point.y};
}

void addElement(QPainterPath& path, const PathElement& element)
{
    const auto& p = element.points;
    switch (element.kind) {
        case PathElementKind::moveTo:
            return path.moveTo(qtPoint(p[0]));
        case PathElementKind::lineTo:
            return path.lineTo(qtPoint(p[0]));
        case PathElementKind::curveTo:
            return path.cubicTo(qtPoint(p[0]), qtPoint(p[1]), qtPoint(p[2]));
        case PathElementKind::quadraticCurveTo:
            return path.quadTo(qtPoint(p[0]), qtPoint(p[1]));
        case PathElementKind::closePath:
            return path.closeSubpath();
    }
}

}  // namespace

QImage imageView(const Bitmap& bitmap)
{
    if (bitmap.isEmpty()) return {};
    return QImage(reinterpret_cast<const uchar*>(bitmap.pixels()), bitmap.width(), bitmap.height(),
                  static_cast<qsizetype>(bitmap.bytesPerRow()), QImage::Format_ARGB32_Premultiplied);
}

QImage writableView(Bitmap& bitmap)
{
    std::uint32_t* pixels = bitmap.mutablePixels();
    if (!pixels) return {};
    return QImage(reinterpret_cast<uchar*>(pixels), bitmap.width(), bitmap.height(),
                  static_cast<qsizetype>(bitmap.bytesPerRow()), QImage::Format_ARGB32_Premultiplied);
}

Bitmap bitmapOf(QImage image)
{
    if (image.isNull() || !Bitmap::isPossible(image.width(), image.height())) return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    auto owner = std::make_shared<QImage>(std::move(image));
    auto* pixels = reinterpret_cast<std::uint32_t*>(owner->bits());
    return Bitmap::adopt(owner->width(), owner->height(), std::shared_ptr<std::uint32_t>(owner, pixels));
}

QColor qtColor(const Color& color)
{
    const auto component = [](double value) { return static_cast<float>(value > 0 ? std::min(value, 1.0) : 0); };
    return QColor::fromRgbF(component(color.red()), component(color.green()), component(color.blue()),
                            component(color.alpha()));
}

QPainterPath qtPath(const BezierPath& path)
{
    QPainterPath result;
    result.setFillRule(path.windingRule() == WindingRule::evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
    for (const PathElement& element : path.elements()) addElement(result, element);
    return result;
}

}  // namespace Platform
