#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "platform/runtime/Number.h"

namespace Pellora {

// The last `width` numbers of a history as bars of one character each, between
// the lowest (at most 0) and the highest of them; a still history is a flat line.
std::string sparkline(std::span<const Platform::Number> history, std::size_t width);

}  // namespace Pellora
