#pragma once

#include <memory>

namespace Platform {

// A window as the lower rooms see it: an opaque shared handle that they pass
// on. What it holds is the drawing room's business.
class Window;
using WindowRef = std::shared_ptr<Window>;

}  // namespace Platform
