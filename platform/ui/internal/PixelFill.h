#pragma once

#include <cstddef>
#include <cstdint>

namespace Platform {

// One premultiplied colour laid over a run of pixels where they are opaque,
// as much as they are (the source-atop rule).
void fillSourceAtop(std::uint32_t* pixels, std::size_t count, std::uint32_t color);

}  // namespace Platform
