#include "launcher/AppDelegate.h"

#include <optional>
#include <vector>

#include "Lorrel/apps/Apps.h"
#include "Lorrel/apps/queries/DistributedNotifications.h"
#include "platform/bundle/Bundle.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Url.h"
#include "platform/session/Workspace.h"

namespace Launcher {

namespace {

// Contents, Library, LoginItems and the launcher itself.
constexpr std::size_t levelsBelowMainApp = 4;

// Absent where nothing but the root would remain.
std::optional<Platform::Url> mainAppAround(const std::string& launcherPath)
{
    auto components = Platform::pathComponents(launcherPath);
    if (components.size() <= levelsBelowMainApp + 1) return std::nullopt;
    components.resize(components.size() - levelsBelowMainApp);
    return Platform::Url::fromPath(Platform::pathWithComponents(components));
}

}  // namespace

std::shared_ptr<AppDelegate> AppDelegate::create()
{
    return std::shared_ptr<AppDelegate>(new AppDelegate);
}

void AppDelegate::terminate()
{
    Platform::Application::shared().terminate();
}

void AppDelegate::launchMainApp()
{
    if (Lorrel::Apps::isRunning(mainIdentifier_)) {
        terminate();
        return;
    }
    // Before the main application starts, so that its "killme" cannot be missed.
    Lorrel::DistributedNotifications::addObserver(shared_from_this(), &AppDelegate::terminate, "killme",
                                                  mainIdentifier_);
    const auto mainApp = mainAppAround(Platform::Bundle::main().bundlePath());
    if (!mainApp) {
        terminate();
        return;
    }
    // Nobody waits for the outcome; what is refused stands in the log.
    const auto opened = Platform::Workspace::shared().openApplication(*mainApp);
    if (!opened) Platform::log(opened.error().message());
}

}  // namespace Launcher
