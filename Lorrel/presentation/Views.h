#pragma once

#include "platform/ui/views/View.h"

namespace Lorrel {

// Keeps the view in the middle of its superview, in that size. Nothing happens
// to a view without superview. Thread: main.
void centerInSuperview(const Platform::ViewRef& view, double width, double height);

}  // namespace Lorrel
