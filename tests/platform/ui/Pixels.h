#pragma once

#include <cstdint>
#include <vector>

#include "platform/ui/Image.h"

namespace Tests {

using Rows = std::vector<std::vector<std::uint32_t>>;

inline Platform::Bitmap bitmapOf(const Rows& rows)
{
    auto bitmap = *Platform::Bitmap::create(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    std::uint32_t* out = bitmap.mutablePixels();
    for (const auto& row : rows) out = std::copy(row.begin(), row.end(), out);
    return bitmap;
}

inline Rows rowsOf(const Platform::Bitmap& bitmap)
{
    Rows rows;
    for (int y = 0; y < bitmap.height(); ++y) {
        const std::uint32_t* row = bitmap.pixels() + static_cast<std::ptrdiff_t>(y) * bitmap.width();
        rows.emplace_back(row, row + bitmap.width());
    }
    return rows;
}

inline Rows rowsOf(const Platform::ImageRef& image)
{
    const auto bitmap = image ? image->bitmap() : std::nullopt;
    return bitmap ? rowsOf(*bitmap) : Rows();
}

inline Platform::ImageRef imageOf(const Rows& rows)
{
    return std::make_shared<Platform::Image>(bitmapOf(rows));
}

// One colour all over.
inline Platform::ImageRef plainImage(int width, int height, std::uint32_t pixel)
{
    return imageOf(Rows(static_cast<std::size_t>(height), std::vector(static_cast<std::size_t>(width), pixel)));
}

}  // namespace Tests
