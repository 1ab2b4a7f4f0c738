#include <gtest/gtest.h>

#include "Lorrel/apps/queries/DistributedNotifications.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"

using Lorrel::DistributedNotifications;
using Platform::NotificationName;

namespace {

struct Listener {
    int calls = 0;

    void hear() { ++calls; }
    void hearIt(const Platform::Notification&) { ++calls; }
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
    DistributedNotifications::addObserver(one, &Listener::hearIt, "killme", "com.orvane.pellora");

    DistributedNotifications::post("killme", std::nullopt);
    DistributedNotifications::post("killme", "com.example.other");
    DistributedNotifications::post("killme", "com.orvane.pellora");
    EXPECT_EQ(any->calls, 9);
    EXPECT_EQ(one->calls, 1);

    DistributedNotifications::removeObserver(one, "killme");
    DistributedNotifications::removeObserver(any, NotificationName("killme"));
    EXPECT_EQ(center->observerCount(), 0u);
}
