#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/ui/Bitmap.h"

// The two picture containers that the imaging library does not read.
namespace Platform {

using Bytes = std::span<const std::byte>;

// Decodes one embedded picture (PNG, JPEG 2000 where it is known); empty when it cannot.
using EntryDecoder = Bitmap (*)(Bytes);

// An icon set: entries of a four-letter type and a length each, among them
// pictures of several sizes. Answers the largest that decodes; empty without one.
bool isIconSet(Bytes content);
Bitmap decodeIconSet(Bytes content, EntryDecoder decodeEntry);

// The primary picture of a HEIF container (HEIC, AVIF); empty when it cannot be decoded.
bool isHeif(Bytes content);
Bitmap decodeHeif(Bytes content);

}  // namespace Platform
