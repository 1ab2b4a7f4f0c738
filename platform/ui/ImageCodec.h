#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"
#include "platform/ui/Bitmap.h"

// Picture files in and out. Any thread; needs no application object.
namespace Platform {

// Null when the content is no whole picture of a known kind, or too large. The
// picture's size is its pixels'; an icon set is shown by its largest entry that
// decodes.
ImageRef decodeImage(std::span<const std::byte> content);
ImageRef decodeImageFile(const Url& file);
// A drawing that scales (SVG), in as many pixels as wanted; other pictures scaled to them.
std::optional<Bitmap> decodeImageFile(const Url& file, int width, int height);

// Absent without pixels or without memory for the result.
std::optional<std::vector<std::byte>> encodePng(const Bitmap& bitmap);

}  // namespace Platform
