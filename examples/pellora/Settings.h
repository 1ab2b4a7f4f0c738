#pragma once

namespace Pellora {

// Seconds between two readings.
inline constexpr double shortestInterval = 0.1;
inline constexpr double longestInterval = 3600;
inline constexpr double defaultInterval = 1;

}  // namespace Pellora
