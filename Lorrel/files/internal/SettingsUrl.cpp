#include "Lorrel/files/internal/SettingsUrl.h"

#include "platform/runtime/Log.h"
#include "platform/runtime/Url.h"
#include "platform/session/Workspace.h"

namespace Lorrel {

void openSettingsUrl(const std::string& address)
{
    const auto url = Platform::Url::parse(address);
    if (!url) return;
    const auto opened = Platform::Workspace::shared().openURL(*url);
    if (!opened) Platform::log("Settings: " + opened.error().message());
}

}  // namespace Lorrel
