#pragma once

#include <memory>

namespace Platform {

// A picture as the lower rooms see it: an opaque shared handle that they store
// and hand back. What it holds is the drawing room's business.
class Image;
using ImageRef = std::shared_ptr<Image>;

}  // namespace Platform
