#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/Image.h"
#include "platform/ui/ImageCodec.h"

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

// A part of it, covered by the rule.
inline void fill(const Platform::ImageRef& image, const Platform::Color& color, const Platform::Rect& part,
                 Platform::CompositingOperation operation = Platform::CompositingOperation::sourceOver)
{
    Platform::ImageFocus focus(image);
    focus.context()->setFillColor(color);
    focus.context()->fill(part, operation);
}

// The content of a picture file.
inline std::string pngOf(const Rows& rows)
{
    const auto png = *Platform::encodePng(bitmapOf(rows));
    return {reinterpret_cast<const char*>(png.data()), png.size()};
}

// One colour all over.
inline Platform::ImageRef plainImage(int width, int height, std::uint32_t pixel)
{
    return imageOf(Rows(static_cast<std::size_t>(height), std::vector(static_cast<std::size_t>(width), pixel)));
}

}  // namespace Tests
