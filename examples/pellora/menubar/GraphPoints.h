#pragma once

#include <span>
#include <vector>

#include "Fennick/Point.h"
#include "platform/runtime/Number.h"

namespace Pellora {

// A history of percentages as a line through an area of that size, y downwards,
// without the points that could not be seen.
std::vector<Fennick::Point> graphPoints(std::span<const Platform::Number> history, double width, double height);

}  // namespace Pellora
