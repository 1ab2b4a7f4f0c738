#pragma once

#include "platform/ui/views/View.h"

namespace Platform {

// The subview's frame in its superview, by the constraints that the superview
// and the subview hold. A direction that the constraints leave open keeps what it has.
Rect constrainedFrame(const View& superview, const View& subview);

// The view's size by the constants that it holds for itself.
Size constrainedSize(const View& view);

}  // namespace Platform
