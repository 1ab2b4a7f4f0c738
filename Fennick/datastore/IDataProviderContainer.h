#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "Fennick/datastore/IDataProvider.h"
#include "Fennick/datastore/IDataStore.h"

namespace Fennick {

// Hears of every refresh, after the providers.
class DataProviderContainerDelegate {
public:
    virtual ~DataProviderContainerDelegate() = default;
    virtual void didRefresh(double elapsed) = 0;
};

// Refreshes data providers on a timer and gathers what they read in one store.
// Thread: the one that runs the refreshes, for all but reading.
class IDataProviderContainer : public InfoProvider {
public:
    virtual std::shared_ptr<IDataStore> store() const = 0;

    // Setting it sets it on every present provider; the container's store keeps its own.
    virtual std::int64_t historySize() const = 0;
    virtual void setHistorySize(std::int64_t size) = 0;
    // Seconds between refreshes; absent for none by themselves. Setting it starts the timer anew.
    virtual std::optional<double> interval() const = 0;
    virtual void setInterval(std::optional<double> seconds) = 0;
    // Held weakly.
    virtual std::shared_ptr<DataProviderContainerDelegate> delegate() const = 0;
    virtual void setDelegate(const std::weak_ptr<DataProviderContainerDelegate>& delegate) = 0;

    // One cycle: each provider updates and is merged, then the delegate hears of it.
    virtual void refresh() = 0;
    // A provider may be added twice and is then refreshed twice; null is ignored.
    virtual void addProvider(const std::shared_ptr<IDataProvider>& provider) = 0;
    // Removes every occurrence.
    virtual void removeProvider(const std::shared_ptr<IDataProvider>& provider) = 0;
    // Ends the timer, empties the providers' stores and forgets the providers;
    // the container's store keeps its readings.
    virtual void stop() = 0;
    // Starts the timer unless it runs or there is no interval.
    virtual void start() = 0;
};

}  // namespace Fennick
