#include "platform/ui/Bitmap.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include <sys/mman.h>

namespace Platform {
namespace {

using Pixels = std::shared_ptr<std::uint32_t>;

// From here on pixels come from the kernel in large pages: touching a fresh
// page for the first time costs far more than any work on its pixels.
constexpr std::size_t largeBytes = 2u << 20;
constexpr std::size_t largePage = 2u << 20;

Pixels mapLarge(std::size_t bytes)
{
    const std::size_t length = (bytes + largePage - 1) / largePage * largePage + largePage;
    void* memory = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return nullptr;
    ::madvise(memory, length, MADV_HUGEPAGE);
    const auto start = (reinterpret_cast<std::uintptr_t>(memory) + largePage - 1) / largePage * largePage;
    return {reinterpret_cast<std::uint32_t*>(start), [memory, length](std::uint32_t*) { ::munmap(memory, length); }};
}

// Fresh pages are zero already, so a transparent bitmap costs nothing until it is drawn into.
Pixels allocate(int width, int height, bool isZeroed)
{
    const std::size_t bytes =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * sizeof(std::uint32_t);
    if (bytes >= largeBytes) return mapLarge(bytes);
    void* memory = isZeroed ? std::calloc(1, bytes) : std::malloc(bytes);
    if (!memory) return nullptr;
    return {static_cast<std::uint32_t*>(memory), [](std::uint32_t* pixels) { std::free(pixels); }};
}

std::optional<Bitmap> make(int width, int height, bool isZeroed)
{
    if (!Bitmap::isPossible(width, height)) return std::nullopt;
    auto pixels = allocate(width, height, isZeroed);
    if (!pixels) return std::nullopt;
    return Bitmap::adopt(width, height, std::move(pixels));
}

}  // namespace

bool Bitmap::isPossible(double width, double height)
{
    if (!(width >= 1 && height >= 1)) return false;
    return width <= largestSide && height <= largestSide && width * height <= static_cast<double>(largestArea);
}

std::optional<Bitmap> Bitmap::create(int width, int height)
{
    return make(width, height, true);
}

std::optional<Bitmap> Bitmap::createUninitialized(int width, int height)
{
    return make(width, height, false);
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
