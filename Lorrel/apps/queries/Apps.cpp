#include "Lorrel/apps/queries/Apps.h"

#include "platform/runtime/Log.h"
#include "platform/session/ProcessTable.h"
#include "platform/session/Workspace.h"

namespace Lorrel {

bool Apps::isRunning(std::string_view bundleIdentifier)
{
    return Platform::Workspace::shared().isRunning(bundleIdentifier);
}

bool Apps::terminate(std::string_view bundleIdentifier)
{
    const auto running = Platform::Workspace::shared().firstRunning(bundleIdentifier);
    return running && running->terminate();
}

bool Apps::isProcessRunning(std::string_view name)
{
    return Platform::ProcessTable::shared().contains(name);
}

void Apps::open(std::string_view path)
{
    const auto opened = Platform::Workspace::shared().openApplication(Platform::Url::fromPath(path, true));
    if (!opened) Platform::log(opened.error().message());
}

}  // namespace Lorrel
