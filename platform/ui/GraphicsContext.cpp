#include "platform/ui/GraphicsContext.h"

#include <array>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/ui/Image.h"
#include "platform/ui/internal/PixelFill.h"
#include "platform/ui/internal/QtDrawing.h"

namespace Platform {
namespace {

std::vector<GraphicsContext*>& currentContexts()
{
    thread_local std::vector<GraphicsContext*> contexts;
    return contexts;
}

QPainter::CompositionMode modeOf(CompositingOperation operation)
{
    static constexpr std::array modes{QPainter::CompositionMode_Clear,
                                      QPainter::CompositionMode_Source,
                                      QPainter::CompositionMode_SourceOver,
                                      QPainter::CompositionMode_SourceIn,
                                      QPainter::CompositionMode_SourceOut,
                                      QPainter::CompositionMode_SourceAtop,
                                      QPainter::CompositionMode_DestinationOver,
                                      QPainter::CompositionMode_DestinationIn,
                                      QPainter::CompositionMode_DestinationOut,
                                      QPainter::CompositionMode_DestinationAtop,
                                      QPainter::CompositionMode_Xor};
    return modes.at(static_cast<std::size_t>(operation));
}

// The rectangle's pixels where its edges lie on pixel edges; null where they do not.
QRect wholePixels(const QRectF& rect)
{
    const QRect whole = rect.toRect();
    return QRectF(whole) == rect ? whole : QRect();
}

}  // namespace

struct GraphicsContext::State {
    struct Look {
        Color fill = Color::black();
        Color stroke = Color::black();
        ImageInterpolation interpolation = ImageInterpolation::standard;
        double opacity = 1;
    };

    State(Bitmap target, Size pointSize) : bitmap(std::move(target)), size(pointSize), image(writableView(bitmap))
    {
        begin();
        if (!image.isNull()) painter.scale(image.width() / size.width, image.height() / size.height);
    }

    void begin();
    void replacePixels(QImage pixels);

    QBrush fillBrush() const;
    QRect pixelsOf(const Rect& rect) const;
    bool isPlain() const { return !painter.hasClipping() && look.opacity == 1; }

    Bitmap bitmap;
    Size size;
    QImage image;
    QPainter painter;
    Look look;
    std::vector<Look> saved;
};

void GraphicsContext::State::begin()
{
    if (image.isNull()) return;
    painter.begin(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

// Taken over where the painter has no saved states to lose: copying a large picture costs a quarter of scaling it.
void GraphicsContext::State::replacePixels(QImage pixels)
{
    if (!saved.empty()) {
        const auto bytes = static_cast<std::size_t>(image.width()) * sizeof(std::uint32_t);
        for (int y = 0; y < image.height(); ++y) std::memcpy(image.scanLine(y), pixels.constScanLine(y), bytes);
        return;
    }
    const QTransform transform = painter.worldTransform();
    painter.end();
    bitmap = bitmapOf(std::move(pixels));
    image = writableView(bitmap);
    begin();
    painter.setWorldTransform(transform);
}

QBrush GraphicsContext::State::fillBrush() const
{
    const ImageRef& pattern = look.fill.patternImage();
    if (!pattern) return QBrush(qtColor(look.fill));
    const auto tile = pattern->bitmap();
    return tile ? QBrush(imageView(*tile).copy()) : QBrush(Qt::NoBrush);
}

// Null unless the rectangle is upright and covers whole pixels of the bitmap.
QRect GraphicsContext::State::pixelsOf(const Rect& rect) const
{
    if (painter.worldTransform().type() > QTransform::TxScale) return {};
    return wholePixels(painter.worldTransform().mapRect(qtRect(rect))).intersected(image.rect());
}

GraphicsContext::GraphicsContext(Bitmap bitmap, Size size) : state_(std::make_unique<State>(std::move(bitmap), size)) {}

GraphicsContext::~GraphicsContext() = default;

GraphicsContext* GraphicsContext::current()
{
    return currentContexts().empty() ? nullptr : currentContexts().back();
}

GraphicsContext::Current::Current(GraphicsContext* context)
{
    currentContexts().push_back(context);
}

GraphicsContext::Current::~Current()
{
    currentContexts().pop_back();
}

Bitmap GraphicsContext::finish()
{
    state_->painter.end();
    state_->image = {};
    return std::exchange(state_->bitmap, {});
}

Size GraphicsContext::size() const
{
    return state_->size;
}

ImageInterpolation GraphicsContext::interpolation() const
{
    return state_->look.interpolation;
}

void GraphicsContext::setInterpolation(ImageInterpolation interpolation)
{
    state_->look.interpolation = interpolation;
}

void GraphicsContext::setFillColor(const Color& color)
{
    state_->look.fill = color;
}

void GraphicsContext::setStrokeColor(const Color& color)
{
    state_->look.stroke = color;
}

const Color& GraphicsContext::fillColor() const
{
    return state_->look.fill;
}

void GraphicsContext::saveState()
{
    state_->painter.save();
    state_->saved.push_back(state_->look);
}

void GraphicsContext::restoreState()
{
    if (state_->saved.empty()) return;
    state_->painter.restore();
    state_->look = std::move(state_->saved.back());
    state_->saved.pop_back();
}

void GraphicsContext::translate(double dx, double dy)
{
    state_->painter.translate(dx, dy);
}

void GraphicsContext::scale(double sx, double sy)
{
    state_->painter.scale(sx, sy);
}

void GraphicsContext::multiplyOpacity(double opacity)
{
    state_->look.opacity *= opacity;
    state_->painter.setOpacity(state_->look.opacity);
}

void GraphicsContext::fill(const Rect& rect, CompositingOperation operation)
{
    if (!rect.isFinite() || rect.isEmpty() || state_->image.isNull()) return;
    const QRect whole = state_->pixelsOf(rect);
    if (operation == CompositingOperation::sourceAtop && state_->isPlain() && !whole.isEmpty() &&
        !state_->look.fill.patternImage()) {
        const std::uint32_t pixel = state_->look.fill.premultipliedPixel();
        for (int y = whole.top(); y <= whole.bottom(); ++y) {
            auto* row = reinterpret_cast<std::uint32_t*>(state_->image.scanLine(y)) + whole.left();
            fillSourceAtop(row, static_cast<std::size_t>(whole.width()), pixel);
        }
        return;
    }
    state_->painter.setCompositionMode(modeOf(operation));
    state_->painter.fillRect(qtRect(rect), state_->fillBrush());
}

void GraphicsContext::fill(const BezierPath& path)
{
    state_->painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    state_->painter.fillPath(qtPath(path), state_->fillBrush());
}

void GraphicsContext::stroke(const BezierPath& path)
{
    const bool isRound = path.lineCap() == LineCap::round;
    const QPen pen(qtColor(state_->look.stroke), path.lineWidth(), Qt::SolidLine, isRound ? Qt::RoundCap : Qt::FlatCap,
                   isRound ? Qt::RoundJoin : Qt::MiterJoin);
    state_->painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    state_->painter.strokePath(qtPath(path), pen);
}

void GraphicsContext::draw(const Bitmap& bitmap, const Rect& part, const Rect& target, CompositingOperation operation,
                           double fraction)
{
    const bool isDrawable = part.isFinite() && !part.isEmpty() && target.isFinite() && !target.isEmpty();
    if (!isDrawable || bitmap.isEmpty() || state_->image.isNull() || !(fraction >= 0)) return;
    QPainter& painter = state_->painter;
    painter.setCompositionMode(modeOf(operation));
    painter.setOpacity(state_->look.opacity * fraction);
    ContextAccess::draw(*this, imageView(bitmap), qtRect(part), qtRect(target),
                        operation == CompositingOperation::copy);
    painter.setOpacity(state_->look.opacity);
}

void GraphicsContext::clip(const BezierPath& path)
{
    state_->painter.setClipPath(qtPath(path), Qt::IntersectClip);
}

Size GraphicsContext::pixelsPerPoint() const
{
    const QTransform& transform = state_->painter.worldTransform();
    return {std::hypot(transform.m11(), transform.m12()), std::hypot(transform.m21(), transform.m22())};
}

QPainter& ContextAccess::painter(GraphicsContext& context)
{
    return context.state_->painter;
}

void ContextAccess::replacePixels(GraphicsContext& context, QImage pixels)
{
    context.state_->replacePixels(std::move(pixels));
}

QImage& ContextAccess::canvas(GraphicsContext& context)
{
    return context.state_->image;
}

}  // namespace Platform
