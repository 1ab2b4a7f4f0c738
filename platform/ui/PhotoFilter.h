#pragma once

#include <optional>
#include <string_view>

#include "platform/ui/Bitmap.h"

namespace Platform {

// The monochrome photo filters. Each takes a pixel's luma Y = 0.2126 R +
// 0.7152 G + 0.0722 B, straight from the stored numbers, without colour
// management, and shows it as a grey by a tone curve that keeps black and white
// and never falls (x is Y from 0 to 1):
//   CIPhotoEffectMono   x                              greys stay as they are
//   CIPhotoEffectTonal  x + 0.35 x (1 - x)             lifts the middle tones
//   CIPhotoEffectNoir   x + 0.9 (3x^2 - 2x^3 - x)      deeper shadows, brighter lights
// Opacity stays. Absent for another name, a bitmap without pixels, or without
// memory for the result. Any thread.
std::optional<Bitmap> applyPhotoFilter(const Bitmap& bitmap, std::string_view name);

}  // namespace Platform
