#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "Fennick/datastore/IDataStore.h"
#include "platform/runtime/Number.h"

namespace Pellora {

// The last `width` numbers of a history as bars of one character each, between
// the lowest (at most 0) and the highest of them (at least `full`); zeros are a flat line.
std::string sparkline(std::span<const Platform::Number> history, std::size_t width, double full = 0);

// That of a reading, in its scale. Empty where it has none, or no number now.
std::string graphOf(const Fennick::IDataStore& readings, const std::string& key, std::size_t width);

}  // namespace Pellora
