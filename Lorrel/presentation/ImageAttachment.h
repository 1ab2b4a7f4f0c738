#pragma once

#include <optional>

#include "platform/ui/text/Font.h"
#include "platform/ui/text/TextAttachment.h"

namespace Lorrel {

// An image in a line of text, centred on the height of the font's capitals.
class ImageAttachment final : public Platform::TextAttachment {
public:
    using TextAttachment::TextAttachment;
    // Without a font the image stands on the base line, in its own size.
    ImageAttachment(const Platform::ImageRef& image, const std::optional<Platform::Font>& font);

    // Where an image lies beside capitals of that height.
    static Platform::Rect bounds(Platform::Size image, double capHeight);
    using TextAttachment::bounds;
};

}  // namespace Lorrel
