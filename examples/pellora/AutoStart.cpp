#include "examples/pellora/AutoStart.h"

#include <cstdio>

#include "Lorrel/apps/queries/LoginItemAutoStartController.h"
#include "Lorrel/apps/queries/MainAppAutoStartController.h"
#include "platform/runtime/Environment.h"
#include "platform/session/ApplicationService.h"

namespace Pellora {

Starter starterOfThisSystem()
{
    return Platform::OperatingSystemVersion::shared().isAtLeast(13) ? Starter::session : Starter::launcher;
}

std::unique_ptr<Lorrel::IAutoStartController> autoStartController(Starter starter)
{
    if (starter == Starter::launcher) {
        return std::make_unique<Lorrel::LoginItemAutoStartController>(appIdentifier, launcherIdentifier);
    }
    return std::make_unique<Lorrel::MainAppAutoStartController>(
        launcherIdentifier, Platform::ApplicationServices::shared().mainAppService());
}

bool runAutoStartCommand(Lorrel::IAutoStartController& controller, std::string_view command)
{
    const bool isSwitch = command == "on" || command == "off";
    if (!isSwitch && command != "status") return false;
    if (isSwitch) controller.setEnabled(command == "on");
    const bool isOn = controller.isEnabled();
    std::puts(isOn ? "on" : "off");
    return !isSwitch || isOn == (command == "on");
}

}  // namespace Pellora
