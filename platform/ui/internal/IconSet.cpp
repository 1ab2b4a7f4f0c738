#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/ui/internal/Containers.h"

namespace Platform {
namespace {

enum class Coding {
    picture,       // a picture file of its own, sometimes the packed form of the older types
    packedColors,  // red, green and blue run-length packed, one after the other
    packedArgb,    // the same with alpha first, after the letters "ARGB"
};

struct EntryKind {
    std::string_view type;
    int side;
    Coding coding;
    std::string_view mask;  // the type of the entry that holds its alpha
};

// Largest first; of one size, the kind with its own alpha first.
constexpr std::array entryKinds{
    EntryKind{"ic10", 1024, Coding::picture, ""},         EntryKind{"ic14", 512, Coding::picture, ""},
    EntryKind{"ic09", 512, Coding::picture, ""},          EntryKind{"ic13", 256, Coding::picture, ""},
    EntryKind{"ic08", 256, Coding::picture, ""},          EntryKind{"ic07", 128, Coding::picture, ""},
    EntryKind{"it32", 128, Coding::packedColors, "t8mk"}, EntryKind{"ic12", 64, Coding::picture, ""},
    EntryKind{"icp6", 64, Coding::picture, ""},           EntryKind{"ih32", 48, Coding::packedColors, "h8mk"},
    EntryKind{"ic11", 32, Coding::picture, ""},           EntryKind{"ic05", 32, Coding::packedArgb, ""},
    EntryKind{"icp5", 32, Coding::picture, ""},           EntryKind{"il32", 32, Coding::packedColors, "l8mk"},
    EntryKind{"ic04", 16, Coding::packedArgb, ""},        EntryKind{"icp4", 16, Coding::picture, ""},
    EntryKind{"is32", 16, Coding::packedColors, "s8mk"},
};

constexpr std::size_t headerSize = 8;  // type and length
constexpr std::size_t bigIconPadding = 4;

std::string_view typeAt(Bytes content, std::size_t offset)
{
    return {reinterpret_cast<const char*>(content.data()) + offset, 4};
}

std::size_t lengthAt(Bytes content, std::size_t offset)
{
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8 | std::to_integer<std::size_t>(content[offset + 4 + i]);
    return length;
}

// The entry's content; empty when the file has none, or it reaches beyond the end.
Bytes entryOf(Bytes content, std::string_view type)
{
    std::size_t offset = headerSize;
    while (offset + headerSize <= content.size()) {
        const std::size_t length = lengthAt(content, offset);
        if (length < headerSize || length > content.size() - offset) return {};
        if (typeAt(content, offset) == type) return content.subspan(offset + headerSize, length - headerSize);
        offset += length;
    }
    return {};
}

// A byte below 128 is followed by one more than that many bytes, one from 128
// on by a single byte that stands 125 less than that many times.
std::vector<std::uint8_t> unpacked(Bytes packed, std::size_t size)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(size);
    std::size_t at = 0;
    while (at + 1 < packed.size() && bytes.size() < size) {
        const auto code = std::to_integer<std::size_t>(packed[at++]);
        const std::size_t count = std::min(code < 128 ? code + 1 : code - 125, size - bytes.size());
        const bool isRun = code >= 128;
        if (!isRun && count > packed.size() - at) break;
        for (std::size_t i = 0; i < count; ++i) {
            bytes.push_back(std::to_integer<std::uint8_t>(packed[isRun ? at : at + i]));
        }
        at += isRun ? 1 : count;
    }
    return bytes;
}

std::uint32_t premultiplied(std::uint32_t alpha, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    const auto scaled = [alpha](std::uint32_t value) { return (value * alpha + 127) / 255; };
    return alpha << 24 | scaled(red) << 16 | scaled(green) << 8 | scaled(blue);
}

// Planes one after the other; alpha from the first of four, from the mask, or opaque.
Bitmap fromPlanes(const std::vector<std::uint8_t>& planes, std::size_t planeCount, Bytes mask, int side)
{
    const auto area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    if (planes.size() != planeCount * area) return {};
    auto bitmap = Bitmap::createUninitialized(side, side);
    if (!bitmap) return {};
    const std::uint8_t* colors = planes.data() + (planeCount - 3) * area;
    std::uint32_t* out = bitmap->mutablePixels();
    for (std::size_t i = 0; i < area; ++i) {
        const std::uint32_t alpha = planeCount == 4       ? planes[i]
                                    : mask.size() == area ? std::to_integer<std::uint32_t>(mask[i])
                                                          : 255;
        out[i] = premultiplied(alpha, colors[i], colors[area + i], colors[2 * area + i]);
    }
    return *bitmap;
}

Bitmap decodeEntry(const EntryKind& kind, Bytes entry, Bytes content, EntryDecoder decodePicture)
{
    const auto area = static_cast<std::size_t>(kind.side) * static_cast<std::size_t>(kind.side);
    if (kind.coding == Coding::picture) return decodePicture(entry);
    if (kind.coding == Coding::packedArgb) {
        if (!entry.empty() && entry.size() > 4 &&
            std::string_view(reinterpret_cast<const char*>(entry.data()), 4) == "ARGB") {
            return fromPlanes(unpacked(entry.subspan(4), 4 * area), 4, {}, kind.side);
        }
        return decodePicture(entry);
    }
    const bool isPadded = kind.type == "it32" && entry.size() > bigIconPadding;
    return fromPlanes(unpacked(entry.subspan(isPadded ? bigIconPadding : 0), 3 * area), 3, entryOf(content, kind.mask),
                      kind.side);
}

}  // namespace

bool isIconSet(Bytes content)
{
    return content.size() >= headerSize && typeAt(content, 0) == "icns";
}

Bitmap decodeIconSet(Bytes content, EntryDecoder decodePicture)
{
    for (const EntryKind& kind : entryKinds) {
        const Bytes entry = entryOf(content, kind.type);
        if (entry.empty()) continue;
        Bitmap bitmap = decodeEntry(kind, entry, content, decodePicture);
        if (!bitmap.isEmpty()) return bitmap;
    }
    return {};
}

}  // namespace Platform
