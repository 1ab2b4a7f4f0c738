#include "examples/pellora/Monitor.h"

#include <utility>

#include "examples/pellora/Subjects.h"

namespace Pellora {

Monitor::Monitor(const Settings& settings)
    : settings_(settings),
      providers_(allSubjects().size()),
      container_(Fennick::DataProviderContainer::create(settings.interval)),
      readings_(container_->store())
{
    for (std::size_t at = 0; at < providers_.size(); ++at)
        replace(providers_[at], allSubjects()[at].provider(settings));
    container_->setDelegate(listeners_);
}

// The timer holds the container until it is stopped.
Monitor::~Monitor()
{
    container_->stop();
}

void Monitor::take(const Settings& settings)
{
    const Settings former = std::exchange(settings_, settings);
    if (settings.interval != former.interval) {
        container_->refresh();  // what moved until now belongs to the time until now
        container_->setInterval(settings.interval);
    }
    for (std::size_t at = 0; at < providers_.size(); ++at) {
        const Subject& subject = allSubjects()[at];
        if (!subject.isSame(former, settings)) replace(providers_[at], subject.provider(settings));
    }
}

void Monitor::replace(std::shared_ptr<Provider>& present, const std::shared_ptr<Provider>& next)
{
    if (present) {
        container_->removeProvider(present);
        for (const auto& key : present->keys()) readings_->remove(key);
    }
    present = next && !next->keys().empty() ? next : nullptr;
    container_->addProvider(present);
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
    for (const auto& provider : providers_) {
        if (provider) all.insert(all.end(), provider->keys().begin(), provider->keys().end());
    }
    return all;
}

}  // namespace Pellora
