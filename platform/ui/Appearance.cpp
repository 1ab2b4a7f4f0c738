#include "platform/ui/Appearance.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <vector>

#include "platform/runtime/Shared.h"
#include "platform/ui/DesktopAppearance.h"

namespace Platform {
namespace {

struct ThreadLook {
    std::optional<Appearance> current;
    std::vector<Appearance> drawing;
};

ThreadLook& threadLook()
{
    thread_local ThreadLook look;
    return look;
}

}  // namespace

bool Appearance::soundsDark() const
{
    std::string lower = name_;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower.find("dark") != std::string::npos;
}

Appearance Appearance::currentDrawing()
{
    const ThreadLook& look = threadLook();
    return look.drawing.empty() ? current() : look.drawing.back();
}

Appearance Appearance::current()
{
    const ThreadLook& look = threadLook();
    return look.current ? *look.current : DesktopAppearance::shared().appearance();
}

void Appearance::setCurrent(const Appearance& appearance)
{
    threadLook().current = appearance;
}

void Appearance::resetCurrent()
{
    threadLook().current.reset();
}

Appearance::Drawing::Drawing(const Appearance& appearance)
{
    threadLook().drawing.push_back(appearance);
}

Appearance::Drawing::~Drawing()
{
    threadLook().drawing.pop_back();
}

DesktopAppearance& DesktopAppearance::shared()
{
    return Shared<DesktopAppearance>::get([] { return std::make_unique<DesktopAppearance>(); });
}

Color DesktopAppearance::accentColor() const
{
    return Color::calibratedRGB(0, 122 / 255.0, 1);
}

}  // namespace Platform
