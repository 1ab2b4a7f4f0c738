#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/IDataProviderContainer.h"
#include "platform/runtime/Timer.h"

namespace Fennick {

// The container on a repeating timer of the main run loop. The timer holds the
// container until stop() or until the interval is taken away.
class DataProviderContainer final : public IDataProviderContainer,
                                    public std::enable_shared_from_this<DataProviderContainer> {
public:
    // Running from the start when there is an interval.
    static std::shared_ptr<DataProviderContainer> create(std::optional<double> interval);

    std::optional<Platform::Number> valueFor(std::string_view key) const override { return store_->valueFor(key); }
    std::string stringFor(std::string_view key) const override { return store_->stringFor(key); }
    // The number in a type; 0 when there is none.
    template <Settable T>
    T valueAs(std::string_view key) const
    {
        const std::optional<Platform::Number> number = valueFor(key);
        return number ? number->as<T>() : T{};
    }

    std::shared_ptr<IDataStore> store() const override { return store_; }
    std::int64_t historySize() const override { return historySize_; }
    void setHistorySize(std::int64_t size) override;
    std::optional<double> interval() const override { return interval_; }
    void setInterval(std::optional<double> seconds) override;
    std::shared_ptr<DataProviderContainerDelegate> delegate() const override { return delegate_.lock(); }
    void setDelegate(const std::weak_ptr<DataProviderContainerDelegate>& delegate) override { delegate_ = delegate; }
    // When the last refresh ended, or the timer was started; seconds since 1970.
    double lastRefresh() const { return lastRefresh_; }
    const std::vector<std::shared_ptr<IDataProvider>>& providers() const { return providers_; }

    void refresh() override;
    void addProvider(const std::shared_ptr<IDataProvider>& provider) override;
    void removeProvider(const std::shared_ptr<IDataProvider>& provider) override;
    void stop() override;
    void start() override;

    ~DataProviderContainer() override;

private:
    explicit DataProviderContainer(std::optional<double> interval);

    void restartTimer();
    void dropTimer();

    std::vector<std::shared_ptr<IDataProvider>> providers_;
    std::shared_ptr<Platform::Timer> timer_;  // null while stopped
    double lastRefresh_;
    std::optional<double> interval_;
    std::int64_t historySize_;
    const std::shared_ptr<IDataStore> store_;
    std::weak_ptr<DataProviderContainerDelegate> delegate_;
};

}  // namespace Fennick
