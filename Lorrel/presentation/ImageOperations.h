#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Fennick/images/Tinting.h"
#include "platform/runtime/Url.h"
#include "platform/ui/Image.h"

// New images from images. The sources stay as they are; none of them may be
// null. Thread: main.
namespace Lorrel {

// Scaled to the size in points, with the best interpolation; without content for a size that cannot be drawn.
Platform::ImageRef resized(const Platform::ImageRef& image, double width, double height);
// To the height, the width in proportion.
Platform::ImageRef resized(const Platform::ImageRef& image, double height);

// Of the same size, transparent outside rounded corners.
Platform::ImageRef rounded(const Platform::ImageRef& image, double xRadius, double yRadius);

// A template in one colour; any other image is the answer itself.
using Fennick::tinted;
Platform::ImageRef tintedWithAccentColor(const Platform::ImageRef& image);

// A symbol with its main parts in the colour and the others in paler shades
// of it; any other image is the answer itself, as is every image before
// platform version 12.
Platform::ImageRef withHierarchicalColor(const Platform::ImageRef& image, const Platform::Color& color);

// The image as the content of a PNG file; absent when it has no bitmap form.
std::optional<std::vector<std::byte>> pngData(const Platform::ImageRef& image);
// Writes it to a file; nothing when it is absent. A failure is logged.
void writePNG(const Platform::ImageRef& image, const Platform::Url& file);

// One image without size and content, always the same.
const Platform::ImageRef& emptyImage();

}  // namespace Lorrel
