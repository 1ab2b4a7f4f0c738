#include "examples/pellora/watch/WatchedApplications.h"

#include "examples/pellora/Texts.h"

namespace Pellora {

namespace {

constexpr double secondsBetweenLooks = 5;

}  // namespace

std::shared_ptr<WatchedApplications> WatchedApplications::create(const std::vector<std::string>& bundleIdentifiers)
{
    std::shared_ptr<WatchedApplications> created(new WatchedApplications(bundleIdentifiers));
    created->monitor_->setDelegate(created);
    return created;
}

WatchedApplications::WatchedApplications(const std::vector<std::string>& bundleIdentifiers)
    : monitor_(Lorrel::AppRunnerMonitor::create(bundleIdentifiers, secondsBetweenLooks)),
      sinceLook_(secondsBetweenLooks)
{
    for (const auto& identifier : bundleIdentifiers) {
        auto& reading = applications_[identifier];
        if (reading) continue;
        reading = std::make_shared<Fennick::StringIdentifier>("app." + identifier, identifier, std::nullopt);
        add(reading);
    }
}

void WatchedApplications::update(double elapsed)
{
    sinceLook_ += elapsed;
    if (applications_.empty() || (sinceLook_ >= 0 && sinceLook_ < secondsBetweenLooks)) return;
    sinceLook_ = 0;
    monitor_->refresh();
}

void WatchedApplications::monitorDidCheck(std::string_view bundleIdentifier, bool isRunning)
{
    const auto found = applications_.find(bundleIdentifier);
    if (found == applications_.end()) return;
    found->second->setString(text(isRunning ? "APP_RUNS" : "APP_RUNS_NOT"), isRunning ? 1 : 0);
}

}  // namespace Pellora
