#include <gtest/gtest.h>

#include "Fennick/MulticastDelegate.h"

TEST(MulticastDelegate, CallsTheLivingListenersOfTheStartOnceEach)
{
    Fennick::MulticastDelegate<int> listeners;
    const auto first = std::make_shared<int>(0);
    auto second = std::make_shared<int>(0);
    const auto late = std::make_shared<int>(0);
    for (const auto& listener : {first, first, second, std::shared_ptr<int>()}) listeners.add(listener);
    const std::weak_ptr<int> watched = second;
    int calls = 0;
    listeners.invoke([&](int& listener) {
        listeners.remove(first);
        listeners.add(late);
        second.reset();
        ++listener;
        ++calls;
    });
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(*first, 1);
    EXPECT_TRUE(watched.expired());
    listeners.invoke([](int& listener) { ++listener; });
    EXPECT_EQ(*first, 1);
    EXPECT_EQ(listeners.delegates(), std::vector{late});
}
