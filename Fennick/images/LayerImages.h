#pragma once

#include "platform/ui/Image.h"
#include "platform/ui/Layer.h"

namespace Fennick {

// The layer as an image of its frame's size, one pixel a point. A frame that
// is not finite or too large for a bitmap is a programming error and ends the
// process; one without area gives an image without content.
Platform::ImageRef snapshot(const Platform::Layer& layer);

// The colour of the layer's pixel with that top left corner, in device RGB;
// components are those of the pixel, premultiplied by its alpha. Outside the layer it is clear.
Platform::Color color(const Platform::Layer& layer, double x, double y);

}  // namespace Fennick
