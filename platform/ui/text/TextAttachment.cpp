#include "platform/ui/text/TextAttachment.h"

#include "platform/ui/Archive.h"

namespace Platform {
namespace {

constexpr std::string_view boundsKey = "Bounds";
constexpr std::string_view imageKey = "Image";

}  // namespace

TextAttachment::TextAttachment(const PropertyList::Dictionary& archive)
    : bounds_(archivedRect(archive, boundsKey)), image_(archivedImage(archive, imageKey))
{
}

PropertyList::Dictionary TextAttachment::archive() const
{
    PropertyList::Dictionary archive;
    Platform::archive(archive, boundsKey, bounds_);
    Platform::archive(archive, imageKey, image_);
    return archive;
}

Rect TextAttachment::drawnBounds() const
{
    if (!bounds_.isEmpty() || !image_) return bounds_;
    return {{}, image_->size()};
}

}  // namespace Platform
