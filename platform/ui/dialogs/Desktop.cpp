#include "platform/ui/Desktop.h"

#include "platform/runtime/Shared.h"
#include "platform/ui/icons/ThemeIconService.h"
#include "platform/ui/internal/PortalAppearance.h"
#include "platform/ui/internal/QtOpenPanel.h"

namespace Platform {
namespace {

// An override that never ends.
template <typename Port, typename Adapter>
void install()
{
    static auto& forEver = *new typename Shared<Port>::Override(std::make_shared<Adapter>());
    static_cast<void>(forEver);
}

}  // namespace

void installDesktop()
{
    install<IconService, ThemeIconService>();
    install<OpenPanel, QtOpenPanel>();
    install<DesktopAppearance, PortalAppearance>();
}

}  // namespace Platform
