#include "platform/ui/internal/PixelFill.h"

#include <algorithm>
#include <array>

namespace Platform {
namespace {

// Each byte times alpha / 255, rounded, two bytes at a time.
std::uint32_t byAlpha(std::uint32_t pixel, std::uint32_t alpha)
{
    const auto half = [alpha](std::uint32_t pair) {
        const std::uint32_t product = pair * alpha + 0x800080u;
        return (product + ((product >> 8) & 0xff00ffu)) >> 8 & 0xff00ffu;
    };
    return half(pixel & 0xff00ffu) | half(pixel >> 8 & 0xff00ffu) << 8;
}

// An opaque colour's result depends on the alpha below only.
std::array<std::uint32_t, 256> shadesOf(std::uint32_t color)
{
    std::array<std::uint32_t, 256> shades{};
    for (std::uint32_t alpha = 0; alpha < shades.size(); ++alpha) shades[alpha] = byAlpha(color, alpha);
    return shades;
}

void fillOpaque(std::uint32_t* pixels, std::size_t count, std::uint32_t color)
{
    const auto shades = shadesOf(color);
    for (std::size_t i = 0; i < count; ++i) pixels[i] = shades[pixels[i] >> 24];
}

// No channel above its alpha: where both parts round up, their sum is one too many.
std::uint32_t limited(std::uint32_t mixed, std::uint32_t alpha)
{
    const auto channel = [&](int shift) { return std::min(mixed >> shift & 0xff, alpha) << shift; };
    return alpha << 24 | channel(16) | channel(8) | channel(0);
}

void fillTranslucent(std::uint32_t* pixels, std::size_t count, std::uint32_t color)
{
    const auto shades = shadesOf(color);
    const std::uint32_t rest = 255 - (color >> 24);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t below = pixels[i];
        const std::uint32_t mixed = (shades[below >> 24] & 0xffffffu) + (byAlpha(below, rest) & 0xffffffu);
        pixels[i] = limited(mixed, below >> 24);
    }
}

}  // namespace

void fillSourceAtop(std::uint32_t* pixels, std::size_t count, std::uint32_t color)
{
    if (color >> 24 == 255) return fillOpaque(pixels, count, color);
    fillTranslucent(pixels, count, color);
}

}  // namespace Platform
