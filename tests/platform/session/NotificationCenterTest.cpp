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

    void listen(const std::shared_ptr<Listener>& observer, const std::shared_ptr<int>& sender = nullptr) const
    {
        center->addObserver({observer, &Listener::hear}, ready, sender);
    }
    std::size_t heard() const { return listener->heard.size(); }
};

}  // namespace

TEST_F(NotificationCenterTest, ReachesWhoWantsTheNameAndTheSenderUntilRemoved)
{
    const NotificationName done("done");
    const auto sender = std::make_shared<int>(1);
    const auto stranger = std::make_shared<int>(1);
    listen(listener);
    listen(listener, sender);
    listen(other, sender);
    for (const auto& poster : {std::shared_ptr<int>(), stranger, sender}) center->post(ready, poster);
    center->post(done, sender);
    EXPECT_EQ(heard(), 4u);
    EXPECT_EQ(other->heard.size(), 1u);

    center->removeObserver(listener, done);
    center->removeObserver(sender, ready);
    center->post(ready, sender);
    EXPECT_EQ(heard(), 6u);
    center->removeObserver(listener, ready);
    center->post(ready, sender);
    EXPECT_EQ(heard(), 6u);
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
    int ended = 0;
    const auto listenHolding = [&] {
        const std::shared_ptr<void> held(nullptr, [&](void*) {
            center->removeObserver(other, ready);
            ++ended;
        });
        center->addObserver({listener, [held](Listener&) {}}, ready);
    };
    listenHolding();
    center->removeObserver(listener, ready);
    EXPECT_EQ(ended, 1);
    listenHolding();
    listener.reset();
    center->post(ready);
    EXPECT_EQ(ended, 2);
    listener = std::make_shared<Listener>();
    listenHolding();
    listener.reset();
    listen(other);
    EXPECT_EQ(ended, 3);
}

TEST_F(NotificationCenterTest, LetsGoOfObserversAndSenders)
{
    auto sender = std::make_shared<int>();
    listen(other, sender);
    sender.reset();
    center->post(ready);
    EXPECT_TRUE(other->heard.empty());

    const std::weak_ptr<Listener> observed = listener;
    listen(listener);
    listener.reset();
    EXPECT_TRUE(observed.expired());
    center->post(ready);
}
