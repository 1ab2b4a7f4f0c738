#include "Lorrel/apps/AppRunnerMonitor.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/Timer.h"
#include "platform/session/Workspace.h"

namespace Lorrel {

std::shared_ptr<AppRunnerMonitor> AppRunnerMonitor::create(std::vector<std::string> identifiers, double interval)
{
    return std::shared_ptr<AppRunnerMonitor>(new AppRunnerMonitor(std::move(identifiers), interval));
}

AppRunnerMonitor::AppRunnerMonitor(std::vector<std::string> identifiers, double interval)
    : identifiers_(std::move(identifiers)), interval_(interval)
{
}

void AppRunnerMonitor::start()
{
    if (timer_) return;
    timer_ = Platform::Timer::scheduled(interval_, true, [self = shared_from_this()] { self->refresh(); });
}

void AppRunnerMonitor::stop()
{
    if (const auto timer = std::exchange(timer_, nullptr)) timer->invalidate();
}

void AppRunnerMonitor::refresh()
{
    const auto running = Platform::Workspace::shared().runningApplications();
    // The delegate may let go of the monitor.
    const auto self = shared_from_this();
    for (const auto& identifier : identifiers_) {
        const bool isRunning = std::ranges::any_of(
            running, [&](const auto& application) { return application.bundleIdentifier() == identifier; });
        if (const auto delegate = delegate_.lock()) delegate->monitorDidCheck(identifier, isRunning);
    }
}

}  // namespace Lorrel
