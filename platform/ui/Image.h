#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"
#include "platform/ui/Bitmap.h"
#include "platform/ui/Color.h"
#include "platform/ui/Geometry.h"
#include "platform/ui/GraphicsContext.h"

namespace Platform {

// Thickness of letters and symbols, thinnest first.
enum class FontWeight { ultraLight, thin, light, regular, medium, semibold, bold, heavy, black };

// How a symbol is to be shown; what is absent stays as it was.
struct SymbolConfiguration {
    std::optional<double> pointSize{};
    std::optional<FontWeight> weight{};
    // Laid over all opaque parts; the image is then no template.
    std::optional<Color> tint{};
    // Main parts in this colour, the others in paler shades of it; then no template either.
    std::optional<Color> hierarchicalColor{};

    // The other one's settings, where it has them, in place of these.
    SymbolConfiguration applying(const SymbolConfiguration& other) const;
};

// A picture with a size in points and what it is drawn from: bitmaps of
// several resolutions, or a block that draws it at any.
// A reference type, held by ImageRef. Thread: one at a time; an image that
// nobody changes may be read on any.
class Image : public std::enable_shared_from_this<Image> {
public:
    // Draws the picture in the size that the image is made with; one that is set later stretches it.
    using Drawing = std::function<void(GraphicsContext&)>;
    // Makes the same symbol in another configuration.
    using Symbol = std::function<ImageRef(const SymbolConfiguration&)>;

    // No size, nothing to draw.
    Image() = default;
    // Nothing to draw.
    explicit Image(Size size) : size_(size) {}
    // The size is the bitmap's own where none is given.
    explicit Image(Bitmap bitmap);
    Image(Bitmap bitmap, Size size);
    Image(Size size, Drawing drawing) : size_(size), drawingSize_(size), drawing_(std::move(drawing)) {}

    // From the content of a picture file of any kind that is known (PNG, JPEG,
    // GIF, TIFF, WebP, SVG, icon sets, HEIC). Null for anything else, for half
    // a file, and for one of more pixels than a bitmap may have. Any thread.
    static ImageRef fromData(std::span<const std::byte> content);
    static ImageRef fromFile(const Url& file);

    ImageRef copy() const;

    Size size() const { return size_; }
    void setSize(Size size) { size_ = size; }
    // A template's colours do not matter, only where it is opaque.
    bool isTemplate() const { return isTemplate_; }
    void setTemplate(bool isTemplate) { isTemplate_ = isTemplate; }

    const std::vector<Bitmap>& representations() const { return representations_; }
    void addRepresentation(Bitmap bitmap);
    bool hasContent() const { return drawing_ || !representations_.empty(); }

    // The largest bitmap, or the drawing at one pixel a point; absent when there is nothing to show.
    std::optional<Bitmap> bitmap() const;
    // The content in exactly that many pixels.
    std::optional<Bitmap> bitmap(int width, int height) const;

    // Into the thread's current context, nothing without one. The empty rectangle means the whole image.
    void draw(const Rect& target, const Rect& from, CompositingOperation operation, double fraction) const;
    void draw(Point point, const Rect& from, CompositingOperation operation, double fraction) const;

    bool isSymbol() const { return symbol_ != nullptr; }
    void setSymbol(Symbol symbol) { symbol_ = std::move(symbol); }
    // A symbol in another configuration; any other image is the answer itself.
    ImageRef withSymbolConfiguration(const SymbolConfiguration& configuration) const;

private:
    friend class ImageFocus;
    // The smallest bitmap with at least that many pixels across, else the largest.
    const Bitmap& representationFor(double pixelsAcross) const;
    void drawOnce(GraphicsContext& context, const Rect& target, CompositingOperation operation, double fraction) const;
    void becomeBitmap(Bitmap bitmap);

    Size size_;
    Size drawingSize_;
    std::vector<Bitmap> representations_;
    Drawing drawing_;
    Symbol symbol_;
    bool isTemplate_ = false;
};

// Draws into an image for a scope: what it shows becomes one bitmap (a pixel a
// point, or as fine as its finest one), and is the image's only content
// afterwards. For an image of no drawable size there is no current context meanwhile.
class [[nodiscard]] ImageFocus {
public:
    explicit ImageFocus(const ImageRef& image);
    ~ImageFocus();
    ImageFocus(const ImageFocus&) = delete;
    ImageFocus& operator=(const ImageFocus&) = delete;

    // Null where the image cannot be drawn into.
    GraphicsContext* context() { return context_ ? &*context_ : nullptr; }

private:
    ImageRef image_;
    std::optional<GraphicsContext> context_;
    std::optional<GraphicsContext::Current> current_;
};

}  // namespace Platform
