#include <gtest/gtest.h>

#include "platform/bus/BusConnection.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

using namespace std::chrono_literals;
using Platform::BusConnection;
using Platform::BusMessage;
using Platform::RunLoop;
using Tests::eventually;

namespace {

constexpr const char* name = "org.example.Service";
constexpr const char* daemonName = "org.freedesktop.DBus";

struct BusConnectionTest : testing::Test {
    using Answer = std::optional<Platform::Result<BusMessage>>;

    Tests::PrivateBus bus;
    const Tests::ReplacedLog log;
    std::shared_ptr<BusConnection> service = BusConnection::create(RunLoop::main());
    std::shared_ptr<BusConnection> client = BusConnection::create(RunLoop::main());

    // The service claims its name each time it has joined.
    Platform::Subscription naming = service->onJoined([this] {
        const BusMessage request = service->newCall(daemonName, "/org/freedesktop/DBus", daemonName, "RequestName");
        sd_bus_message_append(request.get(), "su", name, 0U);
        service->call(request, 10s, [this](const auto& reply) { joins += reply ? 1 : 0; });
    });
    int joins = 0;

    void joinBoth()
    {
        service->join();
        ASSERT_TRUE(eventually([&] { return joins == 1 && client->join(); }, 20s));
    }

    void ask(Answer& answer, const char* path, std::chrono::nanoseconds deadline = 10s)
    {
        client->call(client->newCall(name, path, name, "Ask"), deadline,
                     [&](auto reply) { answer = std::move(reply); });
        EXPECT_FALSE(answer) << "from the loop only";
    }
    Answer answered(const char* path, std::chrono::nanoseconds deadline = 10s)
    {
        Answer answer;
        ask(answer, path, deadline);
        EXPECT_TRUE(eventually([&] { return answer.has_value(); }, 20s));
        return answer;
    }
};

BusMessage echo(const BusMessage& call)
{
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call.get(), &reply);
    BusMessage message(reply);
    message.append(call.path() + " " + call.member());
    return message;
}

}  // namespace

TEST_F(BusConnectionTest, CallsAreAnsweredRefusedOrEndAtTheirDeadline)
{
    auto open = service->exportObject("/open", echo);
    const auto silent = service->exportObject("/silent", [](const BusMessage&) { return BusMessage(); });
    joinBoth();
    auto reply = answered("/open");
    ASSERT_TRUE(*reply);
    EXPECT_EQ(reply->value().readText(), "/open Ask");
    EXPECT_EQ(answered("/silent", 50ms)->error().code, ETIMEDOUT);
    open.cancel();
    open.cancel();
    EXPECT_FALSE(*answered("/open")) << "an object that nobody exports";
}

TEST_F(BusConnectionTest, ALostBusFailsWhatIsPendingAndIsJoinedAgain)
{
    const auto silent = service->exportObject("/silent", [](const BusMessage&) { return BusMessage(); });
    joinBoth();
    for (int round = 1; round <= 2; ++round) {
        Answer pending;
        ask(pending, "/silent", 60s);
        client->flush();
        bus.stop();
        ASSERT_TRUE(eventually([&] { return pending.has_value(); }));
        EXPECT_EQ(pending->error().code, ENOTCONN);
        bus.start();
        ASSERT_TRUE(eventually([&] { return joins == round + 1 && client->join(); }, 20s));
    }
}

TEST_F(BusConnectionTest, WithoutABusACallFailsFromTheLoopAndTheLogSaysSoOnce)
{
    bus.stop();
    EXPECT_EQ(answered("/open")->error().code, ENOTCONN);
    const Tests::EnvironmentVariable noAddress("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const Tests::EnvironmentVariable noRuntime("XDG_RUNTIME_DIR", std::nullopt);
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(client->join());
    EXPECT_EQ(log->messages().size(), 1u);
}
