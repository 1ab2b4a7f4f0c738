#include "Lorrel/presentation/ImageOperations.h"

#include <cerrno>
#include <fstream>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Result.h"
#include "platform/ui/ImageCodec.h"

namespace Lorrel {

using namespace Platform;

namespace {

// Draws a new image of the size, with the best interpolation.
template <typename Drawing>
ImageRef drawn(Size size, Drawing&& draw)
{
    auto image = std::make_shared<Image>(size);
    ImageFocus focus(image);
    if (auto* context = GraphicsContext::current()) context->setInterpolation(ImageInterpolation::high);
    draw();
    return image;
}

}  // namespace

ImageRef resized(const ImageRef& image, double width, double height)
{
    const Rect target{{}, {width, height}};
    return drawn(target.size, [&] { image->draw(target, {{}, image->size()}, CompositingOperation::copy, 1.0); });
}

ImageRef resized(const ImageRef& image, double height)
{
    const double width = height / image->size().height * image->size().width;
    return resized(image, width, height);
}

ImageRef rounded(const ImageRef& image, double xRadius, double yRadius)
{
    return drawn(image->size(), [&] {
        BezierPath outline = BezierPath::roundedRect({{}, image->size()}, xRadius, yRadius);
        outline.setWindingRule(WindingRule::evenOdd);
        outline.addClip();
        image->draw(Point{}, {}, CompositingOperation::sourceOver, 1.0);
    });
}

ImageRef tintedWithAccentColor(const ImageRef& image)
{
    return tinted(image, Color::controlAccentColor());
}

ImageRef withHierarchicalColor(const ImageRef& image, const Color& color)
{
    if (!OperatingSystemVersion::shared().isAtLeast(12)) return image;
    return image->withSymbolConfiguration({.hierarchicalColor = color});
}

std::optional<std::vector<std::byte>> pngData(const ImageRef& image)
{
    const auto bitmap = image->bitmap();
    return bitmap ? encodePng(*bitmap) : std::nullopt;
}

void writePNG(const ImageRef& image, const Url& file)
{
    const auto content = pngData(image);
    if (!content) return;
    if (!file.isFileUrl()) return log("writePNG: " + file.absoluteString() + " is no file");
    std::ofstream out(file.path(), std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(content->data()), static_cast<std::streamsize>(content->size()));
    out.close();
    if (!out) log("writePNG: " + Error::fromErrno("write", file.path(), errno).message());
}

const ImageRef& emptyImage()
{
    static const ImageRef image = std::make_shared<Image>();
    return image;
}

}  // namespace Lorrel
