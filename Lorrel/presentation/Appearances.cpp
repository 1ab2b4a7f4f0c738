#include "Lorrel/presentation/Appearances.h"

#include "platform/runtime/Environment.h"

namespace Lorrel {

using Platform::Appearance;

bool isDarkAppearance()
{
    const bool knowsDrawing = Platform::OperatingSystemVersion::shared().isAtLeast(12);
    return (knowsDrawing ? Appearance::currentDrawing() : Appearance::current()).soundsDark();
}

}  // namespace Lorrel
