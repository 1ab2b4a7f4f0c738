#include "platform/ui/Image.h"

#include <algorithm>
#include <cmath>

#include "platform/ui/ImageCodec.h"

namespace Platform {
namespace {

Size pixelSizeOf(const Bitmap& bitmap)
{
    return {static_cast<double>(bitmap.width()), static_cast<double>(bitmap.height())};
}

// From the image's points to the bitmap's pixels; the empty rectangle is all of them.
Rect partIn(const Bitmap& bitmap, const Rect& from, Size size)
{
    const Size pixels = pixelSizeOf(bitmap);
    if (from.isEmpty()) return {{}, pixels};
    const double sx = pixels.width / size.width;
    const double sy = pixels.height / size.height;
    return Rect::of(from.origin.x * sx, from.origin.y * sy, from.size.width * sx, from.size.height * sy);
}

bool isAll(const Rect& from, Size size)
{
    return from.isEmpty() || from == Rect{{}, size};
}

}  // namespace

SymbolConfiguration SymbolConfiguration::applying(const SymbolConfiguration& other) const
{
    return {other.pointSize ? other.pointSize : pointSize, other.weight ? other.weight : weight,
            other.tint ? other.tint : tint, other.hierarchicalColor ? other.hierarchicalColor : hierarchicalColor};
}

Image::Image(Bitmap bitmap) : size_(pixelSizeOf(bitmap))
{
    addRepresentation(std::move(bitmap));
}

Image::Image(Bitmap bitmap, Size size) : size_(size)
{
    addRepresentation(std::move(bitmap));
}

ImageRef Image::fromData(std::span<const std::byte> content)
{
    return decodeImage(content);
}

ImageRef Image::fromFile(const Url& file)
{
    return decodeImageFile(file);
}

ImageRef Image::copy() const
{
    auto other = std::make_shared<Image>(size_);
    other->representations_ = representations_;
    other->drawing_ = drawing_;
    other->drawingSize_ = drawingSize_;
    other->symbol_ = symbol_;
    other->isTemplate_ = isTemplate_;
    return other;
}

void Image::addRepresentation(Bitmap bitmap)
{
    if (!bitmap.isEmpty()) representations_.push_back(std::move(bitmap));
}

const Bitmap& Image::representationFor(double pixelsAcross) const
{
    const Bitmap* best = &representations_.front();
    for (const Bitmap& other : representations_) {
        const bool isEnough = other.width() >= pixelsAcross;
        const bool bestIsEnough = best->width() >= pixelsAcross;
        if (isEnough != bestIsEnough ? isEnough : (other.width() < best->width()) == isEnough) best = &other;
    }
    return *best;
}

std::optional<Bitmap> Image::bitmap() const
{
    if (!representations_.empty()) return representationFor(Bitmap::largestSide);
    if (!drawing_ || !Bitmap::isPossible(std::ceil(size_.width), std::ceil(size_.height))) return std::nullopt;
    return bitmap(static_cast<int>(std::ceil(size_.width)), static_cast<int>(std::ceil(size_.height)));
}

std::optional<Bitmap> Image::bitmap(int width, int height) const
{
    auto pixels = hasContent() ? Bitmap::create(width, height) : std::nullopt;
    if (!pixels) return std::nullopt;
    const Size whole = pixelSizeOf(*pixels);
    GraphicsContext context(std::move(*pixels), whole);
    context.setInterpolation(ImageInterpolation::high);
    drawOnce(context, {{}, whole}, CompositingOperation::copy, 1);
    return context.finish();
}

void Image::drawOnce(GraphicsContext& context, const Rect& target, CompositingOperation operation,
                     double fraction) const
{
    if (!representations_.empty()) {
        const Bitmap& pixels = representationFor(target.size.width * context.pixelsPerPoint().width);
        return context.draw(pixels, {{}, pixelSizeOf(pixels)}, target, operation, fraction);
    }
    if (!drawing_ || !size_.isDrawable() || !drawingSize_.isDrawable()) return;
    context.saveState();
    context.translate(target.origin.x, target.origin.y);
    context.scale(target.size.width / drawingSize_.width, target.size.height / drawingSize_.height);
    context.multiplyOpacity(fraction);
    GraphicsContext::Current scope(&context);
    drawing_(context);
    context.restoreState();
}

void Image::draw(const Rect& target, const Rect& from, CompositingOperation operation, double fraction) const
{
    GraphicsContext* context = GraphicsContext::current();
    if (!context || !hasContent() || target.isEmpty() || !target.isFinite() || !from.isFinite()) return;
    if (drawing_ && operation == CompositingOperation::sourceOver && isAll(from, size_)) {
        return drawOnce(*context, target, operation, fraction);
    }
    // A drawing's own strokes must not each meet the background by the operation, so it becomes one bitmap first.
    const Size scale = context->pixelsPerPoint();
    const Size part = from.isEmpty() ? size_ : from.size;
    const double across = target.size.width * scale.width * size_.width / part.width;
    const double down = target.size.height * scale.height * size_.height / part.height;
    const auto pixels = !representations_.empty()          ? std::optional(representationFor(across))
                        : Bitmap::isPossible(across, down) ? bitmap(int(std::ceil(across)), int(std::ceil(down)))
                                                           : bitmap();
    if (pixels) context->draw(*pixels, partIn(*pixels, from, size_), target, operation, fraction);
}

void Image::draw(Point point, const Rect& from, CompositingOperation operation, double fraction) const
{
    draw({point, from.isEmpty() ? size_ : from.size}, from, operation, fraction);
}

ImageRef Image::withSymbolConfiguration(const SymbolConfiguration& configuration) const
{
    if (symbol_) return symbol_(configuration);
    return std::const_pointer_cast<Image>(shared_from_this());
}

void Image::becomeBitmap(Bitmap bitmap)
{
    representations_.clear();
    drawing_ = nullptr;
    symbol_ = nullptr;
    addRepresentation(std::move(bitmap));
}

ImageFocus::ImageFocus(const ImageRef& image) : image_(image)
{
    auto pixels = image->bitmap();
    if (!pixels && Bitmap::isPossible(std::ceil(image->size().width), std::ceil(image->size().height))) {
        pixels = Bitmap::create(int(std::ceil(image->size().width)), int(std::ceil(image->size().height)));
    }
    if (pixels && image->size().isDrawable()) context_.emplace(std::move(*pixels), image->size());
    current_.emplace(context());
}

ImageFocus::~ImageFocus()
{
    current_.reset();
    if (context_) image_->becomeBitmap(context_->finish());
}

}  // namespace Platform
