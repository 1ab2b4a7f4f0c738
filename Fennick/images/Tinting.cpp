#include "Fennick/images/Tinting.h"

namespace Fennick {

using Platform::ImageRef;

ImageRef tinted(const ImageRef& image, const Platform::Color& color)
{
    if (!image || !image->isTemplate()) return image;
    // A symbol is drawn in the colour instead, so that it stays sharp at every size.
    if (image->isSymbol()) {
        const ImageRef symbol = image->withSymbolConfiguration({.tint = color});
        symbol->setSize(image->size());
        return symbol;
    }
    const ImageRef copy = image->copy();
    {
        Platform::ImageFocus focus(copy);
        if (auto* context = Platform::GraphicsContext::current()) {
            context->setFillColor(color);
            context->fill({{}, image->size()}, Platform::CompositingOperation::sourceAtop);
        }
    }
    copy->setTemplate(false);
    return copy;
}

}  // namespace Fennick
