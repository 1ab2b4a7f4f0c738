#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "Lorrel/apps/queries/DistributedNotifications.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"

using Lorrel::DistributedNotifications;
using Platform::NotificationName;

namespace {

struct Listener {
    int calls = 0;
    std::optional<std::string> lastObject;

    void hear() { ++calls; }
    void hearObject(const Platform::Notification& notification)
    {
        ++calls;
        lastObject = notification.object;
    }
};

}  // namespace

TEST(DistributedNotifications, EveryFormReachesTheDefaultCentre)
{
    const Tests::ReplacedDistributedNotificationCenter center;
    const auto any = std::make_shared<Listener>();
    const auto one = std::make_shared<Listener>();
    DistributedNotifications::addObserver(any, &Listener::hear, "killme");
    DistributedNotifications::addObserver(any, &Listener::hear, NotificationName("killme"));
    DistributedNotifications::addObserver(any, &Listener::hear, "killme", std::nullopt);
    DistributedNotifications::addObserver(one, &Listener::hearObject, "killme", "com.orvane.pellora");

    DistributedNotifications::post("killme", std::nullopt);
    DistributedNotifications::post("killme", "com.example.other");
    DistributedNotifications::post("killme", "com.orvane.pellora");
    DistributedNotifications::post("other", "com.orvane.pellora");
    EXPECT_EQ(any->calls, 9);
    EXPECT_EQ(one->calls, 1);
    EXPECT_EQ(one->lastObject, "com.orvane.pellora");

    DistributedNotifications::removeObserver(one, "killme");
    DistributedNotifications::removeObserver(any, NotificationName("killme"));
    EXPECT_EQ(center->observerCount(), 0u);
}
