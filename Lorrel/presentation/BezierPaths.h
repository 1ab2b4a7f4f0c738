#pragma once

#include "platform/ui/BezierPath.h"

namespace Lorrel {

// The path's outline without its way of being drawn: moves, lines, cubic
// curves and closings in their order; steps of other kinds are left out.
Platform::GraphicsPath cgPath(const Platform::BezierPath& path);

}  // namespace Lorrel
