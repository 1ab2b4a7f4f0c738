#pragma once

#include "platform/ui/Image.h"

namespace Fennick {

// A template in one colour: where the image is opaque it takes the colour and
// keeps its opacity; the answer is no template. An image that is no template
// is the answer itself; so is none. A symbol can still be configured afterwards.
Platform::ImageRef tinted(const Platform::ImageRef& image, const Platform::Color& color);

}  // namespace Fennick
