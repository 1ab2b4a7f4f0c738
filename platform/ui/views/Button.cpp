#include "platform/ui/views/Button.h"

#include <algorithm>
#include <cmath>

#include "platform/ui/Image.h"
#include "platform/ui/text/AttributedString.h"

namespace Platform {
namespace {

constexpr double gap = 4;
constexpr double margin = 4;
constexpr double disabledAlpha = 0.4;

AttributedString titleText(const std::string& title, const Font& font, const Color& color)
{
    return AttributedString(title, {{fontAttribute, font}, {foregroundColorAttribute, color}});
}

// A template becomes a bitmap of its own first: its colour must not reach what
// lies below the button. The colour's transparency is the whole image's.
void drawColored(const ImageRef& image, const Rect& place, const Color& color)
{
    ImageRef drawn = image;
    if (image->isTemplate() && image->isSymbol()) {
        drawn = image->withSymbolConfiguration({.tint = color.withAlpha(1)});
    } else if (image->isTemplate()) {
        drawn = image->copy();
        ImageFocus focus(drawn);
        if (auto* context = focus.context()) {
            context->setFillColor(color.withAlpha(1));
            context->fill({{}, image->size()}, CompositingOperation::sourceAtop);
        }
    }
    drawn->draw(place, {}, CompositingOperation::sourceOver, image->isTemplate() ? color.alpha() : 1);
}

}  // namespace

void Button::contentChanged()
{
    setNeedsDisplay(true);
    if (const ViewRef parent = superview()) parent->setNeedsLayout(true);
}

void Button::setImage(ImageRef image)
{
    image_ = std::move(image);
    contentChanged();
}

void Button::setTitle(std::string title)
{
    title_ = std::move(title);
    contentChanged();
}

void Button::setFont(const Font& font)
{
    font_ = font;
    contentChanged();
}

void Button::setImagePosition(ImagePosition position)
{
    position_ = position;
    contentChanged();
}

Size Button::titleSize() const
{
    if (!showsTitle()) return {};
    return titleText(title_, font_, Color::labelColor()).boundingSize();
}

Size Button::intrinsicContentSize() const
{
    const Size title = titleSize();
    const Size picture = showsImage() ? image_->size() : Size{};
    if (!showsImage() && !showsTitle()) return {};
    const double between = showsImage() && showsTitle() ? gap : 0;
    return {std::ceil(title.width + picture.width + between) + 2 * margin,
            std::ceil(std::max(title.height, picture.height))};
}

void Button::draw(const Rect&)
{
    const Color color = isEnabled() ? Color::labelColor() : Color::labelColor().withAlpha(disabledAlpha);
    const Size title = titleSize();
    const Size picture = showsImage() ? image_->size() : Size{};
    const double between = showsImage() && showsTitle() ? gap : 0;
    const bool isImageLast = position_ == ImagePosition::imageRight;
    const double left = (bounds().size.width - title.width - picture.width - between) / 2;
    const auto centered = [&](const Size& size) { return (bounds().size.height - size.height) / 2; };
    if (showsImage()) {
        const double x = isImageLast ? left + title.width + between : left;
        drawColored(image_, {{x, centered(picture)}, picture}, color);
    }
    if (showsTitle()) {
        const double x = isImageLast ? left : left + picture.width + between;
        titleText(title_, font_, color).draw(Point{x, centered(title)});
    }
}

}  // namespace Platform
