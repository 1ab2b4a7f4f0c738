#include "platform/ui/Archive.h"

#include <array>
#include <cstddef>
#include <span>

#include "platform/ui/ImageCodec.h"

namespace Platform {
namespace {

constexpr std::string_view pictureKey = "Picture";
constexpr std::string_view sizeKey = "Size";

}  // namespace

Rect archivedRect(const PropertyList::Dictionary& archive, std::string_view key)
{
    const PropertyList* value = archive.find(key);
    const PropertyList::Array* numbers = value ? value->array() : nullptr;
    if (!numbers || numbers->size() != 4) return {};
    const auto at = [&](std::size_t i) { return (*numbers)[i].number().value_or(0); };
    return Rect::of(at(0), at(1), at(2), at(3));
}

void archive(PropertyList::Dictionary& archive, std::string_view key, const Rect& rect)
{
    archive.set(key, PropertyList::Array{rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

ImageRef archivedImage(const PropertyList::Dictionary& archive, std::string_view key)
{
    const PropertyList* value = archive.find(key);
    const PropertyList::Dictionary* entry = value ? value->dictionary() : nullptr;
    const PropertyList* picture = entry ? entry->find(pictureKey) : nullptr;
    const PropertyList::Data* content = picture ? picture->data() : nullptr;
    if (!content) return nullptr;
    ImageRef image = decodeImage(std::as_bytes(std::span(*content)));
    const Size size = archivedRect(*entry, sizeKey).size;
    if (image && size.isDrawable()) image->setSize(size);
    return image;
}

void archive(PropertyList::Dictionary& archive, std::string_view key, const ImageRef& image)
{
    const auto bitmap = image ? image->bitmap() : std::nullopt;
    const auto png = bitmap ? encodePng(*bitmap) : std::nullopt;
    if (!png) return;
    PropertyList::Data content;
    for (const std::byte each : *png) content.push_back(std::to_integer<std::uint8_t>(each));
    PropertyList::Dictionary entry;
    entry.set(pictureKey, std::move(content));
    Platform::archive(entry, sizeKey, Rect{{}, image->size()});
    archive.set(key, std::move(entry));
}

}  // namespace Platform
