#include "examples/pellora/Monitor.h"

#include "examples/pellora/providers/AllProviders.h"
#include "examples/pellora/watch/FollowedLog.h"
#include "examples/pellora/watch/Ping.h"
#include "examples/pellora/watch/WatchedApplications.h"

namespace Pellora {

Monitor::Monitor(double interval, const std::vector<std::shared_ptr<Provider>>& providers)
    : providers_(providers),
      container_(Fennick::DataProviderContainer::create(interval)),
      readings_(container_->store())
{
    for (const auto& provider : providers_) container_->addProvider(provider);
    container_->setDelegate(listeners_);
}

// The timer holds the container until it is stopped.
Monitor::~Monitor()
{
    container_->stop();
}

void Monitor::Listeners::didRefresh(double elapsed)
{
    all.invoke([elapsed](auto& listener) { listener.didRefresh(elapsed); });
}

void Monitor::addListener(const std::shared_ptr<Fennick::DataProviderContainerDelegate>& listener)
{
    listeners_->all.add(listener);
}

std::vector<std::string> Monitor::keys() const
{
    std::vector<std::string> all;
    for (const auto& provider : providers_) all.insert(all.end(), provider->keys().begin(), provider->keys().end());
    return all;
}

std::unique_ptr<Monitor> monitorFor(const Settings& settings)
{
    auto providers = machineProviders(settings.disk);
    if (!settings.applications.empty()) providers.push_back(WatchedApplications::create(settings.applications));
    if (!settings.log.empty()) providers.push_back(FollowedLog::create(settings.log));
    if (!settings.ping.empty()) providers.push_back(std::make_shared<Ping>(settings.ping));
    return std::make_unique<Monitor>(settings.interval, providers);
}

}  // namespace Pellora
