#include "Fennick/datastore/DataProviderContainer.h"

#include "Fennick/datastore/DataStore.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/RunLoop.h"

namespace Fennick {

namespace {

double now()
{
    return Platform::Date::now().timeIntervalSince1970();
}

}  // namespace

std::shared_ptr<DataProviderContainer> DataProviderContainer::create(std::optional<double> interval)
{
    std::shared_ptr<DataProviderContainer> container(new DataProviderContainer(interval));
    container->restartTimer();
    return container;
}

DataProviderContainer::DataProviderContainer(std::optional<double> interval)
    : lastRefresh_(now()), interval_(interval), historySize_(defaultHistorySize), store_(std::make_shared<DataStore>())
{
}

DataProviderContainer::~DataProviderContainer() = default;

void DataProviderContainer::setHistorySize(std::int64_t size)
{
    historySize_ = size;
    const auto present = providers_;
    for (const auto& provider : present) provider->setHistorySize(size);
}

void DataProviderContainer::setInterval(std::optional<double> seconds)
{
    interval_ = seconds;
    restartTimer();
}

// Providers and delegate may change the list, stop the container or let go of
// it; the cycle goes on with those that it began with.
void DataProviderContainer::refresh()
{
    const auto self = shared_from_this();
    const double elapsed = now() - lastRefresh_;
    const auto present = providers_;
    for (const auto& provider : present) {
        provider->update(elapsed);
        if (const auto readings = provider->store()) store_->merge(*readings);
    }
    if (const auto listener = delegate_.lock()) listener->didRefresh(elapsed);
    lastRefresh_ = now();
}

void DataProviderContainer::addProvider(const std::shared_ptr<IDataProvider>& provider)
{
    if (provider) providers_.push_back(provider);
}

void DataProviderContainer::removeProvider(const std::shared_ptr<IDataProvider>& provider)
{
    const auto removed = provider;  // the caller's may be one of ours
    std::erase(providers_, removed);
}

void DataProviderContainer::stop()
{
    const auto self = shared_from_this();  // the timer may be the last that holds it
    dropTimer();
    const auto former = std::exchange(providers_, {});
    for (const auto& provider : former) {
        if (const auto readings = provider->store()) readings->removeAll();
    }
}

void DataProviderContainer::start()
{
    if (!timer_) restartTimer();
}

void DataProviderContainer::restartTimer()
{
    const auto self = shared_from_this();
    dropTimer();
    if (!interval_) return;
    lastRefresh_ = now();
    timer_ = Platform::Timer::create(*interval_, true, [self] { self->refresh(); });
    Platform::RunLoop::main().add(timer_);
}

void DataProviderContainer::dropTimer()
{
    if (const auto ended = std::exchange(timer_, nullptr)) ended->invalidate();
}

}  // namespace Fennick
