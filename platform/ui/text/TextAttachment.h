#pragma once

#include "platform/bundle/PropertyList.h"
#include "platform/ui/Image.h"

namespace Platform {

// An image that stands in a text like a letter. Its bounds are relative to the
// place on the base line, and here y grows upwards: a negative origin reaches
// below the line.
class TextAttachment {
public:
    TextAttachment() = default;
    // From what archive() wrote; what is missing or damaged stays empty.
    explicit TextAttachment(const PropertyList::Dictionary& archive);
    virtual ~TextAttachment() = default;
    TextAttachment(const TextAttachment&) = delete;
    TextAttachment& operator=(const TextAttachment&) = delete;

    PropertyList::Dictionary archive() const;

    const Rect& bounds() const { return bounds_; }
    void setBounds(const Rect& bounds) { bounds_ = bounds; }
    const ImageRef& image() const { return image_; }
    void setImage(ImageRef image) { image_ = std::move(image); }

    // The bounds, or where they are empty the image's size standing on the line.
    Rect drawnBounds() const;

private:
    Rect bounds_;
    ImageRef image_;
};

}  // namespace Platform
