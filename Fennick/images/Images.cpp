#include "Fennick/images/Images.h"

#include "Fennick/images/Tinting.h"
#include "platform/runtime/FatalError.h"
#include "platform/ui/icons/NamedImage.h"
#include "platform/ui/icons/Symbols.h"

namespace Fennick {
namespace {

Platform::ImageRef known(Platform::ImageRef image, std::string_view name)
{
    if (!image) Platform::fatalError("There is no image named \"" + std::string(name) + "\".", "Fennick/Images");
    return image;
}

}  // namespace

Platform::ImageRef Images::symbol(std::string_view name)
{
    return known(Platform::systemSymbol(name), name);
}

Platform::ImageRef Images::symbol(std::string_view name, double pointSize, Platform::FontWeight weight)
{
    return symbol(name)->withSymbolConfiguration({.pointSize = pointSize, .weight = weight});
}

Platform::ImageRef Images::symbol(std::string_view name, const Platform::Color& color)
{
    return tinted(symbol(name), color);
}

Platform::ImageRef Images::symbol(std::string_view name, const Platform::Color& color, double pointSize,
                                  Platform::FontWeight weight)
{
    return symbol(name, color)->withSymbolConfiguration({.pointSize = pointSize, .weight = weight});
}

Platform::ImageRef Images::image(std::string_view name)
{
    return known(Platform::imageNamed(name), name);
}

}  // namespace Fennick
