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

std::unique_ptr<Center> newCenter()
{
    return std::make_unique<Center>(Platform::BusConnection::create(Platform::RunLoop::main()));
}

const NotificationName killme("killme");

// Two processes' views of one session.
struct DistributedNotificationCenterTest : testing::Test {
    Tests::PrivateBus bus;
    std::unique_ptr<Center> here = newCenter();
    std::unique_ptr<Center> there = newCenter();
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    std::shared_ptr<Listener> other = std::make_shared<Listener>();

    void listen(const std::shared_ptr<Listener>& observer, const Object& object = std::nullopt,
                const NotificationName& name = killme) const
    {
        here->addObserver({observer, &Listener::hear}, name, object);
    }

    // Posts a last notification and waits until it has come: all before it have come, too.
    void settle() const
    {
        const NotificationName last("settled");
        const auto witness = std::make_shared<Listener>();
        listen(witness, std::nullopt, last);
        there->post(last, std::nullopt);
        ASSERT_TRUE(eventually([&] { return !witness->heard.empty(); }));
    }

    static void post(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> command{NOTIFICATION_POSTER, "killme"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        ASSERT_EQ(Tests::ChildProcess(command).wait(30s), 0);
    }
};

}  // namespace

TEST_F(DistributedNotificationCenterTest, ObjectsDecideWhoIsCalled)
{
    const std::string odd = "it's, \"quoted\" \\ \xc3\xbc = '";
    const std::string longText(3000, 'x');
    const struct {
        Object wanted;
        std::vector<Object> posted;
        std::size_t called;  // of these, the first ones
    } rows[] = {
        {std::nullopt, {std::nullopt, "a", ""}, 3}, {"a", {"a", "b", "A", "", std::nullopt}, 1},
        {"", {"", std::nullopt, "a"}, 1},           {odd, {odd, "it"}, 1},
        {longText, {longText, longText + "x"}, 1},
    };
    for (const auto& row : rows) {
        const auto observer = std::make_shared<Listener>();
        listen(observer, row.wanted);
        for (const Object& object : row.posted) there->post(killme, object);
        settle();
        EXPECT_EQ(observer->heard, std::vector<Object>(row.posted.begin(), row.posted.begin() + row.called))
            << row.wanted.value_or("any").substr(0, 40);
    }
}

TEST_F(DistributedNotificationCenterTest, NamesAreComparedWhole)
{
    const std::vector<std::string> names{"killme", "kill", "killme2", "it's 'odd' \\,=", ""};
    for (const auto& name : names) {
        const auto observer = std::make_shared<Listener>();
        listen(observer, std::nullopt, NotificationName(name));
        for (const auto& posted : names) there->post(NotificationName(posted), posted);
        settle();
        EXPECT_EQ(observer->heard, std::vector<Object>{name});
    }
}

TEST_F(DistributedNotificationCenterTest, TextsThatTheBusCannotCarryGoNowhere)
{
    listen(listener);
    there->post(killme, std::string("a\0b", 3));
    there->post(killme, "\xff\xfe");
    listen(other, std::nullopt, NotificationName("\xff"));
    there->post(killme, "a");
    settle();
    EXPECT_EQ(listener->heard, std::vector<Object>{"a"});
}

TEST_F(DistributedNotificationCenterTest, ObserversMayVanishEndTheCentreOrRunTheLoopInsideTheirCall)
{
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
    for (int number = 0; number < 60; ++number) post({std::to_string(number)});
    ASSERT_TRUE(eventually([&] { return listener->heard.size() == 60; })) << listener->heard.size();
}

TEST_F(DistributedNotificationCenterTest, BurstsArriveWholeAndInOrder)
{
    listen(listener);
    const auto count = static_cast<std::size_t>(Tests::atLength("notifications", 20'000));
    post({std::to_string(count), "0"});
    ASSERT_TRUE(eventually([&] { return listener->heard.size() == count; }, 60s));
    for (std::size_t number = 0; number < count; ++number) ASSERT_EQ(listener->heard[number], std::to_string(number));
}

TEST_F(DistributedNotificationCenterTest, AFrozenBusCostsTwoSecondsOnceAndFinishesLater)
{
    listen(listener, "warm");
    bus.freeze();
    const auto start = std::chrono::steady_clock::now();
    listen(listener, "a");
    listen(listener, "b");
    const auto fresh = newCenter();
    fresh->post(killme, "a");
    fresh->post(killme, "b");
    const auto spent = std::chrono::steady_clock::now() - start;
    EXPECT_GE(spent, 3900ms);
    EXPECT_LT(spent, 5500ms);

    bus.thaw();
    ASSERT_TRUE(eventually([&] { return listener->heard.size() == 2; }));
}
