#pragma once

#include <concepts>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/ui/Image.h"

namespace Fennick {

// Pictures by name. An unknown name is a programming error and ends the process. Main thread.
class Images {
public:
    Images() = delete;

    // A symbol of the system, as a template.
    static Platform::ImageRef symbol(std::string_view name);
    static Platform::ImageRef symbol(std::string_view name, double pointSize, Platform::FontWeight weight);
    // Tinted, so no template any more.
    static Platform::ImageRef symbol(std::string_view name, const Platform::Color& color);
    static Platform::ImageRef symbol(std::string_view name, const Platform::Color& color, double pointSize,
                                     Platform::FontWeight weight);

    // A picture of the application's resources, with or without the ending of its file name.
    static Platform::ImageRef image(std::string_view name);
    // The name as any value that can be written to a text stream.
    template <typename Name>
    requires(!std::convertible_to<const Name&, std::string_view>) static Platform::ImageRef image(const Name& name)
    {
        std::ostringstream text;
        text << name;
        return image(std::string_view(text.view()));
    }
};

}  // namespace Fennick
