#include "examples/pellora/Monitor.h"

namespace Pellora {

Monitor::Monitor(double interval, const std::vector<std::shared_ptr<Provider>>& providers)
    : providers_(providers),
      container_(Fennick::DataProviderContainer::create(interval)),
      readings_(container_->store())
{
    for (const auto& provider : providers_) container_->addProvider(provider);
}

// The timer holds the container until it is stopped.
Monitor::~Monitor()
{
    container_->stop();
}

std::vector<std::string> Monitor::keys() const
{
    std::vector<std::string> all;
    for (const auto& provider : providers_) all.insert(all.end(), provider->keys().begin(), provider->keys().end());
    return all;
}

}  // namespace Pellora
