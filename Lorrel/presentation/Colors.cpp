#include "Lorrel/presentation/Colors.h"

#include <random>

namespace Lorrel {

using Platform::Color;

namespace {

// A source without a seed or state of ours: the system's own.
double randomComponent(std::random_device& source)
{
    return (source() & 0xff) / 255.0;
}

double component(std::int32_t value)
{
    return (value & 0xff) / 255.0;
}

}  // namespace

Color random()
{
    std::random_device source;
    const double red = randomComponent(source);
    const double green = randomComponent(source);
    return Color::calibratedRGB(red, green, randomComponent(source));
}

Color color(std::int32_t red, std::int32_t green, std::int32_t blue)
{
    return color(red, green, blue, 1.0);
}

Color color(std::int32_t red, std::int32_t green, std::int32_t blue, double alpha)
{
    return Color::calibratedRGB(component(red), component(green), component(blue), alpha);
}

Color inverted(const Color& color)
{
    const Color device = color.usingColorSpace(Platform::ColorSpace::deviceRGB).value_or(color);
    return Color::calibratedRGB(1 - device.red(), 1 - device.green(), 1 - device.blue(), device.alpha());
}

}  // namespace Lorrel
