#include <gtest/gtest.h>

#include "Fennick/datastore/DataProviderContainer.h"
#include "Fennick/datastore/DataStore.h"
#include "platform/runtime/RunLoop.h"
#include "tests/fakes/VirtualClock.h"

using namespace Fennick;
using Platform::Number;

namespace {

// Counts its updates in the reading "count", or does what a test gives it to do.
class CountingProvider final : public IDataProvider {
public:
    CountingProvider() { store_->add(std::make_shared<NumberIdentifier>("count")); }

    std::optional<Number> valueFor(std::string_view key) const override { return store_->valueFor(key); }
    std::string stringFor(std::string_view key) const override { return store_->stringFor(key); }
    std::shared_ptr<IDataStore> store() const override { return store_; }
    std::int64_t historySize() const override { return store_->historySize(); }
    void setHistorySize(std::int64_t size) override { store_->setHistorySize(size); }
    void update(double seconds) override
    {
        elapsed.push_back(seconds);
        store_->set(++count_, "count");
        if (onUpdate) onUpdate();
    }

    std::vector<double> elapsed;
    std::function<void()> onUpdate;

private:
    long count_ = 0;
    std::shared_ptr<IDataStore> store_ = std::make_shared<DataStore>();
};

struct Listener final : DataProviderContainerDelegate {
    void didRefresh(double seconds) override
    {
        elapsed.push_back(seconds);
        if (onRefresh) onRefresh();
    }
    std::vector<double> elapsed;
    std::function<void()> onRefresh;
};

class ContainerTest : public testing::Test {
protected:
    ~ContainerTest() override { container->stop(); }

    void letPass(double seconds)
    {
        clock->advance(seconds);
        Platform::RunLoop::main().drain();
    }
    // Starts refreshing every second, with one provider and a delegate.
    void startTicking()
    {
        container->addProvider(provider);
        container->setDelegate(listener);
        container->setInterval(1);
    }

    Tests::ReplacedClock clock;
    std::shared_ptr<DataProviderContainer> container = DataProviderContainer::create(std::nullopt);
    std::shared_ptr<CountingProvider> provider = std::make_shared<CountingProvider>();
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
};

using Seconds = std::vector<double>;

}  // namespace

TEST_F(ContainerTest, TellsProvidersAndDelegateTheElapsedTimeWhileItHasAnInterval)
{
    startTicking();
    for (const double seconds : {0.5, 0.5, 2.5, 0.5}) letPass(seconds);
    clock->setWall(clock->wallSeconds() - 3600);
    letPass(1);
    EXPECT_EQ(provider->elapsed, (Seconds{1, 2.5, 0.5, -3599}));
    EXPECT_EQ(listener->elapsed, provider->elapsed);
    EXPECT_EQ(container->valueAs<int>("count"), 4);
    EXPECT_EQ(container->stringFor("count"), "4");
    container->setInterval(std::nullopt);
    container->start();
    letPass(100);
    EXPECT_EQ(provider->elapsed.size(), 4U);
}

TEST_F(ContainerTest, RefreshesOnceForEachOfManyContainersAfterASuspend)
{
    std::vector<std::shared_ptr<DataProviderContainer>> sleepers;
    for (int at = 0; at < 50; ++at) {
        sleepers.push_back(DataProviderContainer::create(1 + at * 0.01));
        sleepers.back()->addProvider(provider);
    }
    letPass(8 * 3600);
    EXPECT_EQ(provider->elapsed, Seconds(50, 8 * 3600));
    for (const auto& each : sleepers) each->stop();
}

TEST_F(ContainerTest, RefreshesAProviderAsOftenAsItWasAdded)
{
    container->addProvider(provider);
    container->addProvider(nullptr);
    container->addProvider(provider);
    container->refresh();
    EXPECT_EQ(provider->elapsed.size(), 2U);
    container->removeProvider(container->providers().front());
    container->refresh();
    EXPECT_EQ(provider->elapsed.size(), 2U);
    EXPECT_TRUE(container->providers().empty());
}

TEST_F(ContainerTest, StopsForGoodButKeepsTheLastReadings)
{
    startTicking();
    letPass(1);
    container->stop();
    letPass(5);
    EXPECT_EQ(provider->elapsed.size(), 1U);
    EXPECT_FALSE(provider->store()->contains("count"));
    EXPECT_EQ(container->valueAs<long>("count"), 1);
    container->start();
    container->start();
    letPass(1);
    EXPECT_EQ(listener->elapsed.size(), 2U);
}

TEST_F(ContainerTest, BearsWithProvidersAndDelegatesThatChangeItWhileItRefreshes)
{
    startTicking();
    const auto second = std::make_shared<CountingProvider>();
    container->addProvider(second);
    provider->onUpdate = [&] { container->removeProvider(provider); };
    letPass(1);
    letPass(1);
    EXPECT_EQ(provider->elapsed.size(), 1U);
    EXPECT_EQ(second->elapsed.size(), 2U);

    listener->onRefresh = [&] { listener.reset(); };
    letPass(1);
    EXPECT_EQ(container->delegate(), nullptr);
    letPass(1);
    second->onUpdate = [&] { container->stop(); };
    letPass(1);
    letPass(1);
    EXPECT_EQ(second->elapsed.size(), 5U);
}

TEST_F(ContainerTest, LivesAsLongAsItsTimerAndEndsInsideItsOwnRefresh)
{
    std::weak_ptr<DataProviderContainer> watched = DataProviderContainer::create(1);
    ASSERT_FALSE(watched.expired());
    watched.lock()->addProvider(provider);
    provider->onUpdate = [&] {
        if (const auto ticking = watched.lock()) ticking->stop();
    };
    letPass(1);
    EXPECT_EQ(provider->elapsed.size(), 1U);
    EXPECT_TRUE(watched.expired());
}
