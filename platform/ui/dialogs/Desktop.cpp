#include "platform/ui/Desktop.h"

#include "platform/runtime/Shared.h"
#include "platform/ui/icons/ThemeIconService.h"
#include "platform/ui/internal/PortalAppearance.h"
#include "platform/ui/internal/QtOpenPanel.h"

namespace Platform {
void installDesktop()
{
    static const bool isInstalled = [] {
        Shared<IconService>::install(std::make_shared<ThemeIconService>());
        Shared<OpenPanel>::install(std::make_shared<QtOpenPanel>());
        Shared<DesktopAppearance>::install(std::make_shared<PortalAppearance>());
        return true;
    }();
    static_cast<void>(isInstalled);
}

}  // namespace Platform
