#include "Lorrel/presentation/ImageAttachment.h"

#include <cmath>

namespace Lorrel {

ImageAttachment::ImageAttachment(const Platform::ImageRef& image, const std::optional<Platform::Font>& font)
{
    if (font && image) setBounds(bounds(image->size(), font->capHeight()));
    setImage(image);
}

Platform::Rect ImageAttachment::bounds(Platform::Size image, double capHeight)
{
    return {{0, std::round(capHeight - image.height) * 0.5}, image};
}

}  // namespace Lorrel
