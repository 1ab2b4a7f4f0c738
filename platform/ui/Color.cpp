#include "platform/ui/Color.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/ui/Appearance.h"
#include "platform/ui/DesktopAppearance.h"

namespace Platform {
namespace {

// Texts keep a little of their background.
constexpr double labelAlpha = 0.85;

// Rec. 709 luma.
double luminance(const Color& color)
{
    return 0.2126 * color.red() + 0.7152 * color.green() + 0.0722 * color.blue();
}

// Not a number counts as 0.
std::uint32_t byteOf(double component)
{
    const double limited = component > 0 ? std::min(component, 1.0) : 0.0;
    return static_cast<std::uint32_t>(std::lround(limited * 255));
}

std::uint32_t scaled(std::uint32_t value, std::uint32_t alpha)
{
    return (value * alpha + 127) / 255;
}

}  // namespace

Color Color::deviceRGB(double red, double green, double blue, double alpha)
{
    return {ColorSpace::deviceRGB, {red, green, blue, alpha}};
}

Color Color::calibratedRGB(double red, double green, double blue, double alpha)
{
    return {ColorSpace::calibratedRGB, {red, green, blue, alpha}};
}

Color Color::calibratedWhite(double white, double alpha)
{
    return {ColorSpace::calibratedWhite, {white, white, white, alpha}};
}

Color Color::labelColor()
{
    return Color(Name::label);
}

Color Color::controlAccentColor()
{
    return Color(Name::controlAccent);
}

Color Color::pattern(ImageRef image)
{
    Color color(ColorSpace::pattern, {});
    color.pattern_ = std::move(image);
    return color;
}

Color::Components Color::components() const
{
    if (name_ == Name::none) return components_;
    if (name_ == Name::controlAccent) return DesktopAppearance::shared().accentColor().components();
    const double white = Appearance::currentDrawing().soundsDark() ? 1 : 0;
    return {white, white, white, labelAlpha};
}

std::optional<Color> Color::usingColorSpace(ColorSpace space) const
{
    if (space == space_) return *this;
    if (space_ == ColorSpace::pattern) return std::nullopt;
    switch (space) {
        case ColorSpace::deviceRGB:
        case ColorSpace::calibratedRGB:
            return Color(space, components());
        case ColorSpace::calibratedWhite:
            return calibratedWhite(luminance(*this), alpha());
        default:
            return std::nullopt;
    }
}

Color Color::withAlpha(double alpha) const
{
    if (space_ == ColorSpace::pattern) return *this;
    const Components own = components();
    return {space_ == ColorSpace::catalog ? ColorSpace::calibratedRGB : space_, {own[0], own[1], own[2], alpha}};
}

std::uint32_t Color::premultipliedPixel() const
{
    const Components own = components();
    const std::uint32_t alpha = byteOf(own[3]);
    return alpha << 24 | scaled(byteOf(own[0]), alpha) << 16 | scaled(byteOf(own[1]), alpha) << 8 |
           scaled(byteOf(own[2]), alpha);
}

}  // namespace Platform
