#pragma once

#include <optional>
#include <string>

#include "platform/ui/text/Font.h"
#include "platform/ui/views/Control.h"

namespace Platform {

enum class ImagePosition { noImage = 0, imageOnly = 1, imageLeft = 2, imageRight = 3 };

// A button without a frame around it: an image and a title side by side, both
// centred; a template image takes the colour of the title. It asks for the
// size of both with a little room around them.
class Button : public Control {
public:
    using Control::Control;

    const ImageRef& image() const { return image_; }
    void setImage(ImageRef image);
    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const Font& font() const { return font_; }
    void setFont(const Font& font);
    ImagePosition imagePosition() const { return position_; }
    void setImagePosition(ImagePosition position);

    Size intrinsicContentSize() const override;
    void draw(const Rect& dirtyRect) override;

private:
    void contentChanged();
    bool showsImage() const { return image_ && position_ != ImagePosition::noImage; }
    bool showsTitle() const { return !title_.empty() && position_ != ImagePosition::imageOnly; }
    Size titleSize() const;

    ImageRef image_;
    std::string title_;
    Font font_ = Font::system(13);
    ImagePosition position_ = ImagePosition::imageLeft;
};

}  // namespace Platform
