#include <gtest/gtest.h>

#include "platform/session/NotificationCenter.h"
#include "tests/platform/session/Listener.h"

using Platform::NotificationCenter;
using Platform::NotificationName;
using Tests::Listener;

namespace {

const NotificationName ready("ready");

struct NotificationCenterTest : testing::Test {
    std::unique_ptr<NotificationCenter> center = std::make_unique<NotificationCenter>();
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    std::shared_ptr<Listener> other = std::make_shared<Listener>();
    std::shared_ptr<int> sender = std::make_shared<int>(1);

    void listen(const std::shared_ptr<Listener>& observer, const std::shared_ptr<int>& wanted = nullptr) const
    {
        center->addObserver({observer, &Listener::hear}, ready, wanted);
    }
    std::size_t heard() const { return listener->heard.size(); }
};

}  // namespace

TEST_F(NotificationCenterTest, ReachesWhoWantsTheNameAndTheSenderUntilRemovedOrGone)
{
    listen(listener);
    listen(listener, sender);
    listen(other, sender);
    for (const auto& poster : {std::shared_ptr<int>(), std::make_shared<int>(1), sender}) center->post(ready, poster);
    center->post(NotificationName("done"), sender);
    EXPECT_EQ(heard(), 4u);
    EXPECT_EQ(other->heard.size(), 1u);

    center->removeObserver(listener, NotificationName("done"));
    sender.reset();
    center->post(ready, sender);
    EXPECT_EQ(heard(), 5u);
    EXPECT_EQ(other->heard.size(), 1u) << "who wanted a sender that is gone hears nobody";
    center->removeObserver(listener, ready);
    center->post(ready);
    EXPECT_EQ(heard(), 5u);
}

TEST_F(NotificationCenterTest, ObserverMayRemoveEverybodyAndEndTheCentreInsideItsCall)
{
    listener->then = [&] {
        for (const auto& observer : {listener, other}) center->removeObserver(observer, ready);
        center.reset();
    };
    for (const auto& observer : {listener, listener, other}) listen(observer);
    center->post(ready);
    EXPECT_EQ(heard(), 1u) << "its second registration ended inside the first call";
    EXPECT_TRUE(other->heard.empty());
}

TEST_F(NotificationCenterTest, WhatAnOperationHeldMayUseTheCentreAsItGoes)
{
    int ended = 0, expected = 0;
    const std::function<void()> waysToGo[] = {
        [&] { center->removeObserver(listener, ready); },
        [&] {
            listener.reset();
            center->post(ready);
        },
        [&] {
            listener.reset();
            listen(other);
        },
    };
    for (const auto& go : waysToGo) {
        listener = std::make_shared<Listener>();
        {
            const std::shared_ptr<void> held(nullptr, [&](void*) {
                center->removeObserver(other, ready);
                ++ended;
            });
            center->addObserver({listener, [held](Listener&) {}}, ready);
        }
        go();
        EXPECT_EQ(ended, ++expected);
    }
}
