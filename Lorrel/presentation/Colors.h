#pragma once

#include <cstdint>

#include "platform/ui/Color.h"

namespace Lorrel {

// Opaque, every component any of 0/255 to 255/255 with the same chance. Any thread.
Platform::Color random();

// From components of 0 to 255, of which only the low eight bits count.
Platform::Color color(std::int32_t red, std::int32_t green, std::int32_t blue);
Platform::Color color(std::int32_t red, std::int32_t green, std::int32_t blue, double alpha);

// One minus each component in device RGB, in calibrated RGB; alpha stays. A
// colour without components there (a pattern) counts as it is.
Platform::Color inverted(const Platform::Color& color);

}  // namespace Lorrel
