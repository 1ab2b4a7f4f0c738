#include "platform/ui/PhotoFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace Platform {
namespace {

// A tone curve over luma from 0 to 255, as coefficients of a cubic through 0.
struct Curve {
    float linear, square, cube;
};

struct Filter {
    std::string_view name;
    Curve curve;
};

// Of x from 0 to 1: itself; x + 0.35 x (1 - x); x + 0.9 (3 x^2 - 2 x^3 - x).
constexpr std::array filters{
    Filter{"CIPhotoEffectMono", {1, 0, 0}},
    Filter{"CIPhotoEffectTonal", {1.35f, -0.35f / 255, 0}},
    Filter{"CIPhotoEffectNoir", {0.1f, 2.7f / 255, -1.8f / (255 * 255)}},
};

// Luma weights in 1/65536; their sum is 65536, so that equal components give themselves.
constexpr std::uint32_t redWeight = 13933, greenWeight = 46871, blueWeight = 4732;
static_assert(redWeight + greenWeight + blueWeight == 65536);

std::uint32_t luma(std::uint32_t pixel)
{
    return ((pixel >> 16 & 0xff) * redWeight + (pixel >> 8 & 0xff) * greenWeight + (pixel & 0xff) * blueWeight +
            32768) >>
           16;
}

// Colours are stored times alpha, which is undone before the tone curve and
// done again after it. The dividend stays below 2^16, so that the quotient of
// the two floats never rounds up to the next integer.
std::uint32_t toned(std::uint32_t pixel, const Curve& curve)
{
    const auto alpha = static_cast<std::int32_t>(pixel >> 24);
    const auto product = static_cast<std::int32_t>(luma(pixel)) * 255 + alpha / 2;
    const auto quotient =
        static_cast<std::int32_t>(static_cast<float>(product) / static_cast<float>(alpha + (alpha == 0)));
    const auto full = static_cast<float>(quotient < 255 ? quotient : 255);
    const float tone = full * (curve.linear + full * (curve.square + full * curve.cube));
    const std::int32_t part = static_cast<std::int32_t>(tone + 0.5f) * alpha + 128;
    const auto grey = static_cast<std::uint32_t>((part + (part >> 8)) >> 8);  // part / 255, rounded
    return (pixel & 0xff000000u) | grey << 16 | grey << 8 | grey;
}

// Where a processor may have wider registers, the function is built for these too, and the loader picks.
#if defined(__x86_64__)
#define PELLORA_WIDE __attribute__((target_clones("avx2", "default")))
#else
#define PELLORA_WIDE
#endif

// Simple enough to be vectorised.
PELLORA_WIDE void tone(const std::uint32_t* in, std::size_t count, const Curve& curve, std::uint32_t* out)
{
    const Curve own = curve;
    for (std::size_t i = 0; i < count; ++i) out[i] = toned(in[i], own);
}

}  // namespace

std::optional<Bitmap> applyPhotoFilter(const Bitmap& bitmap, std::string_view name)
{
    const auto* filter = std::ranges::find(filters, name, &Filter::name);
    if (filter == filters.end() || bitmap.isEmpty()) return std::nullopt;
    auto result = Bitmap::createUninitialized(bitmap.width(), bitmap.height());
    if (!result) return std::nullopt;
    tone(bitmap.pixels(), bitmap.pixelCount(), filter->curve, result->mutablePixels());
    return result;
}

}  // namespace Platform
