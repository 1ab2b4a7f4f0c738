#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/session/NotificationCenter.h"

using Platform::Notification;
using Platform::NotificationCenter;
using Platform::NotificationName;

namespace {

struct Listener {
    std::vector<std::string> heard;
    std::function<void()> then = [] {};

    void hear(const Notification& notification)
    {
        heard.push_back(notification.name.text());
        const auto next = then;
        next();
    }
};

const NotificationName ready("ready");
const NotificationName done("done");

struct NotificationCenterTest : testing::Test {
    NotificationCenter center;
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    std::shared_ptr<Listener> other = std::make_shared<Listener>();

    std::size_t heard() const { return listener->heard.size(); }
};

}  // namespace

TEST_F(NotificationCenterTest, ReachesWhoWantsTheNameAndTheSenderUntilRemoved)
{
    const auto sender = std::make_shared<int>(1);
    const auto stranger = std::make_shared<int>(1);
    center.addObserver({listener, &Listener::hear}, ready);
    center.addObserver({listener, &Listener::hear}, ready, sender);
    center.addObserver({other, &Listener::hear}, ready, sender);
    for (const auto& poster : {std::shared_ptr<int>(), stranger, sender}) center.post(ready, poster);
    center.post(done, sender);
    EXPECT_EQ(heard(), 4u);
    EXPECT_EQ(other->heard.size(), 1u);

    center.removeObserver(listener, done);
    center.removeObserver(sender, ready);
    center.post(ready, sender);
    EXPECT_EQ(heard(), 6u);
    center.removeObserver(listener, ready);
    center.post(ready, sender);
    EXPECT_EQ(heard(), 6u);
}

TEST_F(NotificationCenterTest, ObserverMayRemoveEverybodyAndEndTheCentreInsideItsCall)
{
    auto ending = std::make_unique<NotificationCenter>();
    listener->then = [&] {
        ending->removeObserver(other, ready);
        ending.reset();
    };
    ending->addObserver({listener, &Listener::hear}, ready);
    ending->addObserver({other, &Listener::hear}, ready);

    ending->post(ready);

    EXPECT_EQ(heard(), 1u);
    EXPECT_TRUE(other->heard.empty());
}

TEST_F(NotificationCenterTest, WhatAnOperationHeldMayUseTheCentreAsItGoes)
{
    int ended = 0;
    const auto listen = [&] {
        const std::shared_ptr<void> held(nullptr, [&](void*) {
            center.removeObserver(other, ready);
            ++ended;
        });
        center.addObserver({listener, [held](Listener&) {}}, ready);
    };
    listen();
    center.removeObserver(listener, ready);
    EXPECT_EQ(ended, 1);
    listen();
    listener.reset();
    center.post(ready);
    EXPECT_EQ(ended, 2);
    listener = std::make_shared<Listener>();
    listen();
    listener.reset();
    center.addObserver({other, &Listener::hear}, ready);
    EXPECT_EQ(ended, 3);
}

TEST_F(NotificationCenterTest, LetsGoOfObserversAndSenders)
{
    auto sender = std::make_shared<int>();
    center.addObserver({other, &Listener::hear}, ready, sender);
    sender.reset();
    center.post(ready);
    EXPECT_TRUE(other->heard.empty());

    const std::weak_ptr<Listener> observed = listener;
    center.addObserver({listener, &Listener::hear}, ready);
    listener.reset();
    EXPECT_TRUE(observed.expired());
    center.post(ready);
}
