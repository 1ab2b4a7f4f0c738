#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace Platform {

// A rectangle of pixels: 32 bits each, alpha in the highest byte, then red,
// green and blue, colours premultiplied by alpha; rows top down and packed.
// A value: copies share the pixels until one of them is written.
// Thread: as any value; copies may be used on different threads.
class Bitmap {
public:
    // Larger ones are refused: a side is at most 32,767 pixels, the whole at most 100 million.
    static constexpr int largestSide = 32767;
    static constexpr std::int64_t largestArea = 100'000'000;
    static bool isPossible(double width, double height);

    // No pixels.
    Bitmap() = default;
    // Transparent pixels. Absent for a size that is not possible, or without memory for it.
    static std::optional<Bitmap> create(int width, int height);
    // Pixels of any content, for those who write every one.
    static std::optional<Bitmap> createUninitialized(int width, int height);
    // Takes over packed pixels and whatever owns them; nobody else writes them.
    static Bitmap adopt(int width, int height, std::shared_ptr<std::uint32_t> pixels);

    int width() const { return width_; }
    int height() const { return height_; }
    bool isEmpty() const { return pixels_ == nullptr; }
    std::size_t pixelCount() const { return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_); }
    std::size_t bytesPerRow() const { return static_cast<std::size_t>(width_) * sizeof(std::uint32_t); }

    const std::uint32_t* pixels() const { return pixels_.get(); }
    // Copies shared pixels first. Null when there are none, or no memory for the copy.
    std::uint32_t* mutablePixels();
    // Inside the bounds only.
    std::uint32_t pixel(int x, int y) const { return pixels_.get()[static_cast<std::size_t>(y) * width_ + x]; }

    friend bool operator==(const Bitmap& a, const Bitmap& b);

private:
    int width_ = 0;
    int height_ = 0;
    std::shared_ptr<std::uint32_t> pixels_;
};

}  // namespace Platform
