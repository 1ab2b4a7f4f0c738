#include <gtest/gtest.h>

#include "Lorrel/apps/queries/DistributedNotifications.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"

using Lorrel::DistributedNotifications;
using Platform::NotificationName;

TEST(DistributedNotifications, EveryFormReachesTheDefaultCentre)
{
    struct Listener {
        int calls = 0;
        void hear() { ++calls; }
    };
    const Tests::ReplacedDistributedNotificationCenter center;
    const auto any = std::make_shared<Listener>();
    const auto one = std::make_shared<Listener>();
    DistributedNotifications::addObserver(any, &Listener::hear, "killme");
    DistributedNotifications::addObserver(any, &Listener::hear, NotificationName("killme"));
    DistributedNotifications::addObserver(one, &Listener::hear, "killme", "com.orvane.pellora");
    for (const auto& object : {std::optional<std::string>(), {"com.example.other"}, {"com.orvane.pellora"}}) {
        DistributedNotifications::post("killme", object);
    }
    EXPECT_EQ(any->calls, 6);
    EXPECT_EQ(one->calls, 1);

    DistributedNotifications::removeObserver(one, "killme");
    DistributedNotifications::removeObserver(any, NotificationName("killme"));
    EXPECT_EQ(center->observerCount(), 0u);
}
