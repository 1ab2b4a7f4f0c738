#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ui/Geometry.h"
#include "platform/ui/text/TextAttributes.h"

namespace Lorrel {

// Looks of texts, and how much room texts take. Main thread, but for flag().
class TextUtilities {
public:
    TextUtilities() = delete;

    using Alignment = Platform::TextAlignment;

    // Three attributes each: font, colour and a paragraph style of its own with
    // the alignment. Where none is given: the system's font in regular weight,
    // the label colour, centred.
    static Platform::TextAttributes attributes(const Platform::Color& color, Alignment alignment, double size);
    static Platform::TextAttributes attributes(const Platform::Color& color, double size);
    static Platform::TextAttributes attributes(Alignment alignment, const Platform::Color& color, bool bold,
                                               double size);
    static Platform::TextAttributes attributes(Alignment alignment, double size);
    static Platform::TextAttributes attributes(const Platform::Font& font, const Platform::Color& color,
                                               Alignment alignment = Alignment::center);
    static Platform::TextAttributes attributes(bool bold, Alignment alignment, double size);
    static Platform::TextAttributes attributes(double size);

    // Of the text's bounding rectangle; 0 by 0 for no text. A maximum of 0 is none.
    static Platform::Size size(std::optional<std::string_view> text, const Platform::Font& font, double maximumWidth,
                               double maximumHeight);
    static double height(std::optional<std::string_view> text, const Platform::Font& font);

    // The flag of a region code in capitals ("DE"): every character moved by the
    // distance from A to the regional indicator A; those that this leads out of
    // Unicode are left out, as is what is no UTF-8. Any thread.
    static std::string flag(std::string_view code);
};

}  // namespace Lorrel
