#pragma once

#include <string_view>

#include "platform/bundle/PropertyList.h"
#include "platform/ui/Image.h"

// What objects of the drawing room keep of themselves in an archive, which is
// a property list's dictionary.
namespace Platform {

// An array of x, y, width and height; the zero rectangle where there is none.
Rect archivedRect(const PropertyList::Dictionary& archive, std::string_view key);
void archive(PropertyList::Dictionary& archive, std::string_view key, const Rect& rect);

// The image's picture and size; null, or nothing written, where there is none.
ImageRef archivedImage(const PropertyList::Dictionary& archive, std::string_view key);
void archive(PropertyList::Dictionary& archive, std::string_view key, const ImageRef& image);

}  // namespace Platform
