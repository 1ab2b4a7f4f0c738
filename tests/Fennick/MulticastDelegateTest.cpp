#include <gtest/gtest.h>

#include "Fennick/MulticastDelegate.h"

using Fennick::MulticastDelegate;

namespace {

struct Listener {
    int calls = 0;
};

void call(Listener& listener)
{
    ++listener.calls;
}

}  // namespace

TEST(MulticastDelegate, CallsEachLivingListenerOnce)
{
    MulticastDelegate<Listener> listeners;
    listeners.invoke([](Listener&) { FAIL(); });
    const auto first = std::make_shared<Listener>();
    auto second = std::make_shared<Listener>();
    const std::weak_ptr<Listener> watched = second;
    listeners.add(first);
    listeners.add(first);
    listeners.add(second);
    listeners.add(nullptr);
    listeners.invoke(call);
    EXPECT_EQ(second->calls, 1);
    second.reset();
    EXPECT_TRUE(watched.expired());
    listeners.invoke(call);
    EXPECT_EQ(first->calls, 2);
    listeners.remove(first);
    listeners.invoke(call);
    EXPECT_EQ(first->calls, 2);
}

TEST(MulticastDelegate, WalksTheListenersOfTheStart)
{
    MulticastDelegate<Listener> listeners;
    const auto first = std::make_shared<Listener>();
    auto second = std::make_shared<Listener>();
    const auto late = std::make_shared<Listener>();
    listeners.add(first);
    listeners.add(second);
    int calls = 0;
    listeners.invoke([&](Listener&) {
        listeners.remove(first);
        listeners.remove(second);
        listeners.add(late);
        second.reset();
        ++calls;
    });
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(listeners.delegates(), std::vector{late});
}
