#include "platform/ui/PhotoFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace Platform {
namespace {

struct Filter {
    std::string_view name;
    double (*curve)(double);
};

constexpr std::array filters{
    Filter{"CIPhotoEffectMono", [](double x) { return x; }},
    Filter{"CIPhotoEffectTonal", [](double x) { return x + 0.35 * x * (1 - x); }},
    Filter{"CIPhotoEffectNoir", [](double x) { return x + 0.9 * (3 * x * x - 2 * x * x * x - x); }},
};

// Luma weights in 1/65536; their sum is 65536, so that equal components give themselves.
constexpr std::uint32_t redWeight = 13933, greenWeight = 46871, blueWeight = 4732;
static_assert(redWeight + greenWeight + blueWeight == 65536);

using Tones = std::array<std::uint8_t, 256>;

Tones tonesOf(const Filter& filter)
{
    Tones tones{};
    for (std::size_t y = 0; y < tones.size(); ++y) {
        tones[y] = static_cast<std::uint8_t>(std::lround(255 * filter.curve(static_cast<double>(y) / 255)));
    }
    return tones;
}

std::uint32_t luma(std::uint32_t pixel)
{
    return ((pixel >> 16 & 0xff) * redWeight + (pixel >> 8 & 0xff) * greenWeight + (pixel & 0xff) * blueWeight +
            32768) >>
           16;
}

// 2^24 / alpha, rounded up. With it, multiplying and shifting gives the exact
// quotient by alpha of every number below 2^16.
constexpr auto reciprocals = [] {
    std::array<std::uint64_t, 256> table{};
    for (std::uint64_t alpha = 1; alpha < table.size(); ++alpha) table[alpha] = ((1u << 24) + alpha - 1) / alpha;
    return table;
}();

// Colours are stored times alpha: the luma is undone, toned and done again.
std::uint32_t tonedTranslucent(std::uint32_t pixel, const Tones& tones)
{
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) return 0;
    const std::uint64_t full = std::min<std::uint64_t>((luma(pixel) * 255 + alpha / 2) * reciprocals[alpha] >> 24, 255);
    return alpha << 24 | (tones[full] * alpha + 127) / 255 * 0x010101u;
}

// In runs that stay in the first cache, each pass simple enough to be vectorised.
constexpr std::size_t runLength = 1024;

struct Run {
    std::array<std::uint8_t, runLength> luma;
    bool isOpaque;
};

// Also built for wider registers; the loader picks what the processor has.
#define PELLORA_WIDE __attribute__((target_clones("avx2", "default")))

PELLORA_WIDE void measure(const std::uint32_t* in, std::size_t count, Run& run)
{
    std::uint32_t alphas = 0xffffffff;
    for (std::size_t i = 0; i < count; ++i) {
        run.luma[i] = static_cast<std::uint8_t>(luma(in[i]));
        alphas &= in[i];
    }
    run.isOpaque = alphas >> 24 == 0xff;
}

PELLORA_WIDE void write(const std::uint32_t* in, std::size_t count, const Run& run, const Tones& tones,
                        std::uint32_t* out)
{
    if (run.isOpaque) {
        for (std::size_t i = 0; i < count; ++i) out[i] = 0xff000000u | tones[run.luma[i]] * 0x010101u;
        return;
    }
    for (std::size_t i = 0; i < count; ++i) out[i] = tonedTranslucent(in[i], tones);
}

}  // namespace

std::optional<Bitmap> applyPhotoFilter(const Bitmap& bitmap, std::string_view name)
{
    const auto* filter = std::ranges::find(filters, name, &Filter::name);
    if (filter == filters.end() || bitmap.isEmpty()) return std::nullopt;
    auto result = Bitmap::createUninitialized(bitmap.width(), bitmap.height());
    if (!result) return std::nullopt;
    const Tones tones = tonesOf(*filter);
    std::uint32_t* out = result->mutablePixels();
    Run run;
    for (std::size_t at = 0; at < bitmap.pixelCount(); at += runLength) {
        const std::size_t count = std::min(runLength, bitmap.pixelCount() - at);
        measure(bitmap.pixels() + at, count, run);
        write(bitmap.pixels() + at, count, run, tones, out + at);
    }
    return result;
}

}  // namespace Platform
