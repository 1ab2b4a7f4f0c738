#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/runtime/Image.h"

namespace Platform {

// The spaces that a colour's components are counted in. No colour management:
// the RGB spaces hold the same numbers, grey is equal red, green and blue.
enum class ColorSpace {
    deviceRGB,
    calibratedRGB,
    calibratedWhite,
    catalog,  // a named colour, resolved for the look it is drawn in
    pattern,  // an image instead of components
};

// A colour. A value; equal when space and components are.
class Color {
public:
    static Color deviceRGB(double red, double green, double blue, double alpha = 1);
    static Color calibratedRGB(double red, double green, double blue, double alpha = 1);
    static Color calibratedWhite(double white, double alpha = 1);
    static Color black() { return calibratedWhite(0); }
    static Color white() { return calibratedWhite(1); }
    static Color clear() { return calibratedWhite(0, 0); }

    // The colour of texts, and the one that the user picked for what is selected.
    static Color labelColor();
    static Color controlAccentColor();
    // Tiles the image.
    static Color pattern(ImageRef image);

    ColorSpace colorSpace() const { return space_; }
    // The same colour in an RGB space or in grey (by luminance); absent for a
    // pattern, and for the spaces that have no components.
    std::optional<Color> usingColorSpace(ColorSpace space) const;

    // From 0.0 to 1.0, not premultiplied; of a pattern 0.
    double red() const { return components()[0]; }
    double green() const { return components()[1]; }
    double blue() const { return components()[2]; }
    double alpha() const { return components()[3]; }
    Color withAlpha(double alpha) const;
    const ImageRef& patternImage() const { return pattern_; }

    // As one pixel of a Bitmap: each component limited to 0...1, rounded, premultiplied.
    std::uint32_t premultipliedPixel() const;

    friend bool operator==(const Color&, const Color&) = default;

private:
    enum class Name { none, label, controlAccent };
    using Components = std::array<double, 4>;

    Color(ColorSpace space, const Components& components) : space_(space), components_(components) {}
    explicit Color(Name name) : space_(ColorSpace::catalog), name_(name) {}
    // Catalogue colours answer for the current drawing appearance.
    Components components() const;

    ColorSpace space_;
    Name name_ = Name::none;
    Components components_{};
    ImageRef pattern_;
};

}  // namespace Platform
