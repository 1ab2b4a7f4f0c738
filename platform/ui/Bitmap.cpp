#include "platform/ui/Bitmap.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace Platform {
namespace {

// Fresh pages of calloc are zero already, so a transparent bitmap costs nothing until it is drawn into.
std::shared_ptr<std::uint32_t> pixelsOf(void* memory)
{
    if (!memory) return nullptr;
    return {static_cast<std::uint32_t*>(memory), [](std::uint32_t* pixels) { std::free(pixels); }};
}

std::optional<Bitmap> wrap(int width, int height, void* memory)
{
    if (!memory) return std::nullopt;
    return Bitmap::adopt(width, height, pixelsOf(memory));
}

std::size_t area(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

}  // namespace

bool Bitmap::isPossible(double width, double height)
{
    if (!(width >= 1 && height >= 1)) return false;
    return width <= largestSide && height <= largestSide && width * height <= static_cast<double>(largestArea);
}

std::optional<Bitmap> Bitmap::create(int width, int height)
{
    if (!isPossible(width, height)) return std::nullopt;
    return wrap(width, height, std::calloc(area(width, height), sizeof(std::uint32_t)));
}

std::optional<Bitmap> Bitmap::createUninitialized(int width, int height)
{
    if (!isPossible(width, height)) return std::nullopt;
    return wrap(width, height, std::malloc(area(width, height) * sizeof(std::uint32_t)));
}

Bitmap Bitmap::adopt(int width, int height, std::shared_ptr<std::uint32_t> pixels)
{
    Bitmap bitmap;
    bitmap.width_ = width;
    bitmap.height_ = height;
    bitmap.pixels_ = std::move(pixels);
    return bitmap;
}

std::uint32_t* Bitmap::mutablePixels()
{
    if (!pixels_ || pixels_.use_count() == 1) return pixels_.get();
    auto own = createUninitialized(width_, height_);
    if (!own) return nullptr;
    std::memcpy(own->pixels_.get(), pixels_.get(), pixelCount() * sizeof(std::uint32_t));
    pixels_ = std::move(own->pixels_);
    return pixels_.get();
}

bool operator==(const Bitmap& a, const Bitmap& b)
{
    if (a.width_ != b.width_ || a.height_ != b.height_) return false;
    if (a.pixels_ == b.pixels_) return true;
    return std::memcmp(a.pixels_.get(), b.pixels_.get(), a.pixelCount() * sizeof(std::uint32_t)) == 0;
}

}  // namespace Platform
