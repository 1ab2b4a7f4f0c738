#include <cstring>
#include <memory>
#include <string_view>

#include <libheif/heif.h>

#include "platform/runtime/Log.h"
#include "platform/runtime/SystemLibrary.h"
#include "platform/ui/internal/Containers.h"

namespace Platform {
namespace {

// Few programs ever see such a picture, and the library brings four video codecs along.
struct HeifLibrary {
    SystemLibrary library{"libheif.so.1"};
    decltype(&heif_context_alloc) newContext = library.find("heif_context_alloc");
    decltype(&heif_context_free) freeContext = library.find("heif_context_free");
    decltype(&heif_context_read_from_memory_without_copy) read =
        library.find("heif_context_read_from_memory_without_copy");
    decltype(&heif_context_get_primary_image_handle) primary = library.find("heif_context_get_primary_image_handle");
    decltype(&heif_image_handle_release) releaseHandle = library.find("heif_image_handle_release");
    decltype(&heif_image_handle_get_width) widthOfHandle = library.find("heif_image_handle_get_width");
    decltype(&heif_image_handle_get_height) heightOfHandle = library.find("heif_image_handle_get_height");
    decltype(&heif_decode_image) decode = library.find("heif_decode_image");
    decltype(&heif_image_release) release = library.find("heif_image_release");
    decltype(&heif_image_get_plane_readonly) plane = library.find("heif_image_get_plane_readonly");
    decltype(&heif_image_get_width) width = library.find("heif_image_get_width");
    decltype(&heif_image_get_height) height = library.find("heif_image_get_height");
};

// Where it is missing, no such picture has content, which is said once.
const HeifLibrary& heif()
{
    return loadedOnce<HeifLibrary>([](const HeifLibrary& heif) {
        if (!heif.library.isUsable()) log("HEIC and AVIF pictures cannot be read: " + heif.library.failure());
    });
}

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Handle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;
using Picture = std::unique_ptr<heif_image, decltype(&heif_image_release)>;

bool failed(const heif_error& error)
{
    return error.code != heif_error_Ok;
}

Handle primaryPicture(heif_context* context)
{
    heif_image_handle* handle = nullptr;
    if (failed(heif().primary(context, &handle))) handle = nullptr;
    return {handle, heif().releaseHandle};
}

Picture decode(const heif_image_handle* handle)
{
    heif_image* image = nullptr;
    const auto error = heif().decode(handle, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, nullptr);
    return {failed(error) ? nullptr : image, heif().release};
}

std::uint32_t premultiplied(const std::uint8_t* rgba)
{
    const std::uint32_t alpha = rgba[3];
    const auto scaled = [alpha](std::uint32_t value) { return (value * alpha + 127) / 255; };
    return alpha << 24 | scaled(rgba[0]) << 16 | scaled(rgba[1]) << 8 | scaled(rgba[2]);
}

Bitmap bitmapOf(const heif_image* image)
{
    int stride = 0;
    const std::uint8_t* plane = heif().plane(image, heif_channel_interleaved, &stride);
    const int width = heif().width(image, heif_channel_interleaved);
    const int height = heif().height(image, heif_channel_interleaved);
    auto bitmap = plane ? Bitmap::createUninitialized(width, height) : std::nullopt;
    if (!bitmap) return {};
    std::uint32_t* out = bitmap->mutablePixels();
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = plane + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x) *out++ = premultiplied(row + 4 * static_cast<std::ptrdiff_t>(x));
    }
    return *bitmap;
}

}  // namespace

bool isHeif(Bytes content)
{
    if (content.size() < 12) return false;
    const std::string_view head(reinterpret_cast<const char*>(content.data()), 12);
    const auto brand = head.substr(8, 4);
    return head.substr(4, 4) == "ftyp" && (brand.starts_with("hei") || brand.starts_with("hev") || brand == "mif1" ||
                                           brand == "msf1" || brand == "avif");
}

Bitmap decodeHeif(Bytes content)
{
    if (!heif().library.isUsable()) return {};
    const Context context(heif().newContext(), heif().freeContext);
    if (failed(heif().read(context.get(), content.data(), content.size(), nullptr))) return {};
    const Handle handle = primaryPicture(context.get());
    if (!handle) return {};
    if (!Bitmap::isPossible(heif().widthOfHandle(handle.get()), heif().heightOfHandle(handle.get()))) {
        return {};
    }
    const Picture picture = decode(handle.get());
    return picture ? bitmapOf(picture.get()) : Bitmap();
}

}  // namespace Platform
