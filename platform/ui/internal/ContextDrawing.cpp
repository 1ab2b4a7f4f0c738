#include <cmath>
#include <utility>

#include "platform/ui/GraphicsContext.h"
#include "platform/ui/internal/QtDrawing.h"

namespace Platform {
namespace {

QImage partOf(const QImage& image, const QRectF& part)
{
    const QRect whole = part.toAlignedRect().intersected(image.rect());
    return whole == image.rect() ? image : image.copy(whole);
}

bool isUpright(const QPainter& painter)
{
    const QTransform& transform = painter.worldTransform();
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

QSize pixelSize(const QRectF& device)
{
    if (!Bitmap::isPossible(std::max(1.0, device.width()), std::max(1.0, device.height()))) return {};
    return {std::max(1, qRound(device.width())), std::max(1, qRound(device.height()))};
}

bool isWhole(const QRectF& rect, const QSize& size)
{
    return rect == QRectF(QPointF(0, 0), QSizeF(size));
}

// The painter blends two pixels each way, which loses detail when an image
// shrinks; the image's own scaling averages all of them.
void drawScaled(QPainter& painter, const QImage& image, const QRectF& device)
{
    painter.save();
    painter.resetTransform();
    painter.drawImage(device, image);
    painter.restore();
}

}  // namespace

void ContextAccess::draw(GraphicsContext& context, const QImage& image, const QRectF& part, const QRectF& target,
                         bool isCopy)
{
    QPainter& pen = painter(context);
    const QRectF device = pen.worldTransform().mapRect(target);
    const QSize pixels = pixelSize(device);
    if (context.interpolation() != ImageInterpolation::high || !isUpright(pen) || pixels.isEmpty()) {
        pen.setRenderHint(QPainter::SmoothPixmapTransform, context.interpolation() != ImageInterpolation::none);
        return pen.drawImage(target, image, part);
    }
    QImage own = partOf(image, part);
    if (own.size() != pixels) own = own.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (own.isNull()) return;
    own.convertTo(QImage::Format_ARGB32_Premultiplied);
    const QImage& whole = canvas(context);
    const bool isPlain = isCopy && pen.opacity() == 1 && !pen.hasClipping();
    if (isPlain && isWhole(device, whole.size()) && own.size() == whole.size())
        return replacePixels(context, std::move(own));
    drawScaled(pen, own, device);
}

}  // namespace Platform
