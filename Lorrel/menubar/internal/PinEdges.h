#pragma once

#include "platform/ui/views/View.h"

namespace Lorrel {

// Fills the outer view with the inner one, by four constraints.
void pinEdges(const Platform::ViewRef& inner, const Platform::ViewRef& outer);

}  // namespace Lorrel
