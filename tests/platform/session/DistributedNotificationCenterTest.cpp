#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/bus/BusConnection.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/session/DistributedNotificationCenter.h"
#include "platform/session/internal/DBusDistributedNotificationCenter.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeDistributedNotificationCenter.h"
#include "tests/fakes/Replaced.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/Torture.h"

using namespace std::chrono_literals;
using Platform::BusConnection;
using Platform::DBusDistributedNotificationCenter;
using Platform::DistributedNotificationCenter;
using Platform::Notification;
using Platform::NotificationName;
using Platform::RunLoop;

namespace {

using Object = std::optional<std::string>;

struct Listener {
    std::vector<Object> heard;
    std::function<void()> then = [] {};

    void hear(const Notification& notification)
    {
        heard.push_back(notification.object);
        const auto next = then;
        next();
    }
};

std::shared_ptr<DistributedNotificationCenter> newCenter()
{
    return std::make_shared<DBusDistributedNotificationCenter>(BusConnection::create(RunLoop::main()));
}

const NotificationName killme("killme");

// Two processes' views of one session.
struct Centers {
    Tests::PrivateBus bus;
    std::shared_ptr<DistributedNotificationCenter> here, there;

    void listen(const std::shared_ptr<Listener>& observer, const Object& object = std::nullopt) const
    {
        here->addObserver({observer, &Listener::hear}, killme, object);
    }

    // Posts a last notification and waits until it has come: all before it have come, too.
    void settle() const
    {
        const NotificationName last("settled");
        const auto witness = std::make_shared<Listener>();
        here->addObserver({witness, &Listener::hear}, last, std::nullopt);
        there->post(last, std::nullopt);
        ASSERT_TRUE(RunLoop::main().runUntil([&] { return !witness->heard.empty(); }, 10s));
    }
};

struct DistributedNotificationCenterTest : testing::Test, Centers {
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    std::shared_ptr<Listener> other = std::make_shared<Listener>();

    DistributedNotificationCenterTest()
    {
        here = newCenter();
        there = newCenter();
    }

    static void post(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> command{NOTIFICATION_POSTER};
        command.insert(command.end(), arguments.begin(), arguments.end());
        Tests::ChildProcess poster(command);
        ASSERT_EQ(poster.wait(30s), 0);
    }
};

// What the fake centre has to do like the bus.
struct DistributedNotificationContract : testing::TestWithParam<bool>, Centers {
    DistributedNotificationContract()
    {
        here = GetParam() ? newCenter() : std::make_shared<Tests::FakeDistributedNotificationCenter>();
        there = GetParam() ? newCenter() : here;
    }
};
INSTANTIATE_TEST_SUITE_P(FakeAndBus, DistributedNotificationContract, testing::Bool());

}  // namespace

TEST_P(DistributedNotificationContract, ObjectsDecideWhoIsCalled)
{
    struct Row {
        Object wanted, posted;
        bool isCalled;
    };
    const std::string odd = "it's, \"quoted\" \\ \xc3\xbc = '";
    const std::string longText(3000, 'x');
    const std::vector<Row> rows{
        {std::nullopt, std::nullopt, true},
        {std::nullopt, "a", true},
        {std::nullopt, "", true},
        {"a", "a", true},
        {"a", "b", false},
        {"a", "A", false},
        {"a", "", false},
        {"a", std::nullopt, false},
        {"", "", true},
        {"", std::nullopt, false},
        {"", "a", false},
        {odd, odd, true},
        {odd, "it", false},
        {longText, longText, true},
        {longText, longText + "x", false},
    };
    for (const Row& row : rows) {
        const auto observer = std::make_shared<Listener>();
        listen(observer, row.wanted);
        there->post(killme, row.posted);
        settle();
        EXPECT_EQ(observer->heard, row.isCalled ? std::vector<Object>{row.posted} : std::vector<Object>{})
            << row.wanted.value_or("any").substr(0, 40) << " <- " << row.posted.value_or("none").substr(0, 40);
    }
}

TEST_P(DistributedNotificationContract, NamesAreComparedWhole)
{
    for (const std::string name : {"killme", "kill", "killme2", "it's 'odd' \\,=", ""}) {
        const auto observer = std::make_shared<Listener>();
        here->addObserver({observer, &Listener::hear}, NotificationName(name), std::nullopt);
        for (const std::string posted : {"killme", "kill", "killme2", "it's 'odd' \\,=", ""}) {
            there->post(NotificationName(posted), posted);
        }
        settle();
        EXPECT_EQ(observer->heard, std::vector<Object>{name});
    }
}

TEST_F(DistributedNotificationCenterTest, TextsThatTheBusCannotCarryGoNowhere)
{
    listen(listener);
    there->post(killme, std::string("a\0b", 3));
    there->post(killme, "\xff\xfe");
    here->addObserver({other, &Listener::hear}, NotificationName("\xff"), std::nullopt);
    there->post(killme, "a");
    settle();
    EXPECT_EQ(listener->heard, std::vector<Object>{"a"});
}

TEST_P(DistributedNotificationContract, RegisteredTwiceIsCalledTwiceAndRemovedAtOnce)
{
    const auto listener = std::make_shared<Listener>();
    const auto other = std::make_shared<Listener>();
    listen(listener);
    listen(listener, "a");
    listen(other, "a");
    listener->then = [&] { here->removeObserver(listener, killme); };
    there->post(killme, "a");
    settle();
    EXPECT_EQ(listener->heard.size(), 1u) << "the second registration ended inside the first call";

    listener->then = [] {};
    listen(listener);
    listen(listener, "a");
    there->post(killme, "a");
    settle();
    EXPECT_EQ(listener->heard.size(), 3u);
    EXPECT_EQ(other->heard.size(), 2u);
}

TEST_F(DistributedNotificationCenterTest, ObserversMayVanishEndTheCentreOrRunTheLoopInsideTheirCall)
{
    listen(other);
    listener->then = [&] {
        if (listener->heard.size() > 1) return;
        other.reset();
        there->post(killme, "nested");
        EXPECT_TRUE(RunLoop::main().runUntil([&] { return listener->heard.size() == 2; }, 10s));
        here.reset();
    };
    here->removeObserver(other, killme);
    listen(listener);
    listen(other);
    there->post(killme, "first");
    ASSERT_TRUE(RunLoop::main().runUntil([&] { return !here; }, 10s));
    EXPECT_EQ(listener->heard, (std::vector<Object>{"first", "nested"}));
}

TEST_F(DistributedNotificationCenterTest, NothingIsLostOfProcessesThatEndRightAfterPosting)
{
    listen(listener);
    for (int number = 0; number < 60; ++number) post({"killme", std::to_string(number)});
    ASSERT_TRUE(RunLoop::main().runUntil([&] { return listener->heard.size() == 60; }, 10s)) << listener->heard.size();
}

TEST_F(DistributedNotificationCenterTest, BurstsArriveWholeAndInOrder)
{
    listen(listener);
    const auto count = static_cast<std::size_t>(Tests::atLength("notifications", 20'000));
    post({"killme", std::to_string(count), "0"});
    ASSERT_TRUE(RunLoop::main().runUntil([&] { return listener->heard.size() == count; }, 60s));
    for (std::size_t number = 0; number < count; ++number) ASSERT_EQ(listener->heard[number], std::to_string(number));
}

TEST_F(DistributedNotificationCenterTest, ALostBusIsJoinedAgainAndObserversStay)
{
    const Tests::ReplacedLog log;
    listen(listener, "a");
    for (int round = 1; round <= 2; ++round) {
        bus.stop();
        there->post(killme, "a");  // to nobody
        bus.start();
        ASSERT_TRUE(RunLoop::main().runUntil(
            [&] {
                there->post(killme, "a");
                return listener->heard.size() >= static_cast<std::size_t>(round) * 10;
            },
            20s));
    }
    settle();
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
    ASSERT_TRUE(RunLoop::main().runUntil([&] { return listener->heard.size() == 2; }, 10s));
}

TEST_F(DistributedNotificationCenterTest, WithoutABusNothingHappensAndTheLogSaysSoOnce)
{
    const Tests::ReplacedLog log;
    const Tests::EnvironmentVariable noAddress("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const Tests::EnvironmentVariable noRuntime("XDG_RUNTIME_DIR", std::nullopt);
    const auto alone = newCenter();
    alone->addObserver({listener, &Listener::hear}, killme, std::nullopt);
    alone->post(killme, std::nullopt);
    alone->removeObserver(listener, killme);
    RunLoop::main().drain();
    EXPECT_TRUE(listener->heard.empty());
    EXPECT_EQ(log->messages().size(), 1u);
}
