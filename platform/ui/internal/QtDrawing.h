#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "platform/ui/BezierPath.h"
#include "platform/ui/Bitmap.h"
#include "platform/ui/Color.h"
#include "platform/ui/GraphicsContext.h"

// Our values in the painting library's words.
namespace Platform {

// A view of the pixels; the bitmap must outlive it.
QImage imageView(const Bitmap& bitmap);
QImage writableView(Bitmap& bitmap);
// Takes the pixels over, converting them where they are of another kind; empty for an image without any.
Bitmap bitmapOf(QImage image);
QColor qtColor(const Color& color);
QPainterPath qtPath(const BezierPath& path);
inline QRectF qtRect(const Rect& rect)
{
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

// What the other drawing files may reach of a context.
struct ContextAccess {
    static QPainter& painter(GraphicsContext& context);
    static QImage& canvas(GraphicsContext& context);
    // Makes the pixels, as many as the context has, its own.
    static void replacePixels(GraphicsContext& context, QImage pixels);
    // With the painter's composition mode and opacity as they are.
    static void draw(GraphicsContext& context, const QImage& image, const QRectF& part, const QRectF& target,
                     bool isCopy);
};

}  // namespace Platform
