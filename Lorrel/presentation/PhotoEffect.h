#pragma once

#include <optional>
#include <string_view>

#include "platform/ui/Image.h"

namespace Lorrel {

// The monochrome looks; their raw values name the filters that make them.
enum class PhotoEffect { mono, tonal, noir };

std::string_view rawValue(PhotoEffect effect);
// Absent for any text that is not exactly a raw value.
std::optional<PhotoEffect> photoEffect(std::string_view rawValue);

// A new image of the same size with the effect applied to its bitmap; null
// when there is no image, it has no bitmap form, or the effect fails. Any thread.
Platform::ImageRef applying(const Platform::ImageRef& image, PhotoEffect effect);

}  // namespace Lorrel
