#include "platform/ui/icons/NamedImage.h"

#include <array>

#include "platform/bundle/Bundle.h"

namespace Platform {

ImageRef imageNamed(std::string_view name)
{
    static constexpr std::array endings{"", "png", "svg", "icns", "heic", "jpg", "tiff"};
    for (const char* ending : endings) {
        const auto file = Bundle::main().urlForResource(name, ending);
        if (!file) continue;
        if (ImageRef image = Image::fromFile(*file)) return image;
    }
    return nullptr;
}

}  // namespace Platform
