#include "platform/session/Workspace.h"

#include <algorithm>

#include "platform/runtime/Shared.h"
#include "platform/session/internal/LinuxWorkspace.h"

namespace Platform {

Workspace& Workspace::shared()
{
    return Shared<Workspace>::get([] { return std::make_unique<LinuxWorkspace>(); });
}

std::optional<RunningApplication> Workspace::firstRunning(std::string_view bundleIdentifier)
{
    const auto applications = runningApplications();
    const auto found = std::find_if(applications.begin(), applications.end(), [&](const RunningApplication& running) {
        return running.bundleIdentifier() == bundleIdentifier;
    });
    return found == applications.end() ? std::nullopt : std::optional(*found);
}

bool RunningApplication::terminate() const
{
    return Workspace::shared().terminate(*this);
}

}  // namespace Platform
