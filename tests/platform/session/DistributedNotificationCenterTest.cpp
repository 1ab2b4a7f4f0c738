#include <gtest/gtest.h>

#include "platform/bus/BusConnection.h"
#include "platform/session/internal/DBusDistributedNotificationCenter.h"
#include "tests/platform/session/Listener.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/Torture.h"

using namespace std::chrono_literals;
using Platform::NotificationName;
using Tests::eventually;
using Tests::Listener;

namespace {

using Object = std::optional<std::string>;
using Center = Platform::DBusDistributedNotificationCenter;

const NotificationName killme("killme");

// Two processes' views of one session.
struct DistributedNotificationCenterTest : testing::Test {
    static std::unique_ptr<Center> newCenter()
    {
        return std::make_unique<Center>(Platform::BusConnection::create(Platform::RunLoop::main()));
    }

    Tests::PrivateBus bus;
    std::unique_ptr<Center> here = newCenter();
    std::unique_ptr<Center> there = newCenter();
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();

    void listen(const std::shared_ptr<Listener>& observer, const Object& object = std::nullopt,
                const NotificationName& name = killme) const
    {
        here->addObserver({observer, &Listener::hear}, name, object);
    }
};

}  // namespace

TEST_F(DistributedNotificationCenterTest, WholeNamesAndObjectsDecideWhoIsCalled)
{
    const std::string odd = "it's, \"quoted\" \\ \xc3\xbc = '";
    const std::string longText(3000, 'x');
    const std::vector<std::string> names{"killme", "kill", "killme2", odd, ""};
    const std::vector<Object> objects{std::nullopt, "a", "A", "", odd, "it", longText, longText + "x"};
    std::vector<std::shared_ptr<Listener>> listeners;
    for (const auto& name : names) {
        for (const auto& object : objects) {
            listen(listeners.emplace_back(std::make_shared<Listener>()), object, NotificationName(name));
        }
    }
    listen(listener, std::nullopt, NotificationName("\xff"));
    const auto witness = std::make_shared<Listener>();
    listen(witness, std::nullopt, NotificationName("last"));
    for (const auto& name : names) {
        const NotificationName posted(name);
        for (const auto& object : objects) there->post(posted, object);
        for (const auto& notForTheBus : {std::string("a\0b", 3), std::string("\xff")})
            there->post(posted, notForTheBus);
    }
    there->post(NotificationName("last"), std::nullopt);
    ASSERT_TRUE(eventually([&] { return !witness->heard.empty(); }));
    for (std::size_t at = 0; at < listeners.size(); ++at) {
        const Object& wanted = objects[at % objects.size()];
        EXPECT_EQ(listeners[at]->heard, wanted ? std::vector{wanted} : objects)
            << names[at / objects.size()] << " with " << wanted.value_or("any").substr(0, 40);
    }
    EXPECT_TRUE(listener->heard.empty());
}

TEST_F(DistributedNotificationCenterTest, ObserversMayVanishEndTheCentreOrRunTheLoopInsideTheirCall)
{
    auto other = std::make_shared<Listener>();
    listen(other);
    listener->then = [&] {
        if (listener->heard.size() > 1) return;
        other.reset();
        there->post(killme, "nested");
        EXPECT_TRUE(eventually([&] { return listener->heard.size() == 2; }));
        here.reset();
    };
    here->removeObserver(other, killme);
    listen(listener);
    listen(other);
    there->post(killme, "first");
    ASSERT_TRUE(eventually([&] { return !here; }));
    EXPECT_EQ(listener->heard, (std::vector<Object>{"first", "nested"}));
}

TEST_F(DistributedNotificationCenterTest, NothingIsLostOfProcessesThatEndRightAfterPosting)
{
    listen(listener);
    for (int number = 0; number < 60; ++number) {
        ASSERT_EQ(Tests::ChildProcess({NOTIFICATION_POSTER, "killme", std::to_string(number)}).wait(30s), 0);
    }
    ASSERT_TRUE(eventually([&] { return listener->heard.size() == 60; })) << listener->heard.size();
}

TEST_F(DistributedNotificationCenterTest, BurstsArriveWholeAndInOrder)
{
    listen(listener);
    const auto count = static_cast<std::size_t>(Tests::atLength("notifications", 20'000));
    ASSERT_EQ(Tests::ChildProcess({NOTIFICATION_POSTER, "killme", "0", std::to_string(count)}).wait(30s), 0);
    ASSERT_TRUE(eventually([&] { return listener->heard.size() == count; }, 60s));
    for (std::size_t number = 0; number < count; ++number) ASSERT_EQ(listener->heard[number], std::to_string(number));
}
