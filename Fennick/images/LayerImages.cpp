#include "Fennick/images/LayerImages.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime/FatalError.h"

namespace Fennick {

using namespace Platform;

namespace {

Bitmap rendered(const Layer& layer, Bitmap pixels, double dx, double dy)
{
    const Size size{static_cast<double>(pixels.width()), static_cast<double>(pixels.height())};
    GraphicsContext context(std::move(pixels), size);
    context.translate(dx, dy);
    layer.render(context);
    return context.finish();
}

double component(std::uint32_t pixel, int shift)
{
    return (pixel >> shift & 0xff) / 255.0;
}

}  // namespace

ImageRef snapshot(const Layer& layer)
{
    const Size size = layer.frame().size;
    if (!size.isFinite()) fatalError("The layer's frame is not finite.", "Fennick/Layer");
    if (!Bitmap::isPossible(std::max(size.width, 1.0), std::max(size.height, 1.0))) {
        fatalError("The layer's frame is too large.", "Fennick/Layer");
    }
    if (size.width < 1 || size.height < 1) return std::make_shared<Image>(size);
    auto pixels = Bitmap::create(static_cast<int>(size.width), static_cast<int>(size.height));
    if (!pixels) return std::make_shared<Image>(size);
    return std::make_shared<Image>(rendered(layer, std::move(*pixels), 0, 0), size);
}

Color color(const Layer& layer, double x, double y)
{
    auto pixels = Bitmap::create(1, 1);
    const bool isPlace = std::isfinite(x) && std::isfinite(y);
    if (!pixels || !isPlace || !layer.frame().size.isFinite()) return Color::deviceRGB(0, 0, 0, 0);
    const std::uint32_t pixel = rendered(layer, std::move(*pixels), -x, -y).pixel(0, 0);
    return Color::deviceRGB(component(pixel, 16), component(pixel, 8), component(pixel, 0), component(pixel, 24));
}

}  // namespace Fennick
