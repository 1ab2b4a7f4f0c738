#include <gtest/gtest.h>

#include "platform/session/internal/DBusUserNotificationCenter.h"
#include "platform/session/internal/NotificationReviewPrompt.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeNotificationServer.h"
#include "tests/fakes/FakeUserNotificationCenter.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Display.h"
#include "tests/support/PrivateBus.h"

namespace Platform {

namespace {

using namespace std::chrono_literals;
using Tests::eventually;
using Tests::FakeNotificationServer;
using Kind = UserNotificationResponse::Kind;

class UserNotificationTest : public testing::Test {
protected:
    explicit UserNotificationTest(std::chrono::nanoseconds deadline = 10s)
        : center(BusConnection::create(RunLoop::current()), RunLoop::current(), deadline)
    {
    }

    std::optional<UserNotificationSettings> settings()
    {
        std::optional<UserNotificationSettings> answer;
        center.settings([&](const UserNotificationSettings& current) { answer = current; });
        eventually([&] { return answer.has_value(); });
        return answer;
    }

    // Each notification's end: "" shown, else the error's reason; each response: its kind and action.
    void add(const std::string& title, const std::string& body)
    {
        const auto respond = [this](const UserNotificationResponse& response) {
            responses.push_back(std::to_string(static_cast<int>(response.kind)) + response.action);
        };
        center.add({"id", {title, body, true, {{"default", "Open"}}}, respond},
                   [this](const std::optional<Error>& error) { ends.push_back(error ? error->message() : ""); });
    }
    bool haveEnded(std::size_t count)
    {
        return eventually([&] { return ends.size() == count; }, 20s);
    }

    static constexpr UserNotificationSettings shownAsBanner{AuthorizationStatus::authorized, AlertStyle::banner};
    static constexpr UserNotificationSettings denied{AuthorizationStatus::denied, AlertStyle::none};

    Tests::ReplacedLog log;
    Tests::PrivateBus bus;
    DBusUserNotificationCenter center;
    std::vector<std::string> ends;
    std::vector<std::string> responses;
};

TEST_F(UserNotificationTest, WithoutAServerNothingIsPermittedAndAddingFails)
{
    for (const bool hasBus : {true, false}) {
        if (!hasBus) bus.stop();
        EXPECT_EQ(settings(), denied);
        add("title", "body");
        ASSERT_TRUE(haveEnded(1));
        EXPECT_NE(std::exchange(ends, {}).front(), "");
    }
    std::optional<Result<bool>> granted;
    center.requestAuthorization(7, [&](const Result<bool>& answer) { granted.emplace(answer); });
    ASSERT_TRUE(eventually([&] { return granted.has_value(); }));
    EXPECT_FALSE(granted->isSuccess());
}

TEST_F(UserNotificationTest, ShowsPlainTextsWhateverTheServerReads)
{
    const std::string title = "a\nb\001c\x7f", body = "<b>x</b> & \xff\n\t" + std::string("\0y", 2);
    // The second server takes the place of the first and reads bodies as they are.
    for (const bool takesMarkup : {true, false}) {
        FakeNotificationServer server;
        server.takesMarkup = takesMarkup;
        EXPECT_TRUE(eventually([&] { return settings() == shownAsBanner; }));
        add(title, body);
        ASSERT_TRUE(haveEnded(takesMarkup ? 1 : 2));
        EXPECT_EQ(ends.back(), "");
        EXPECT_EQ(server.shown.at(0).title, "a bc");
        EXPECT_EQ(server.shown.at(0).body,
                  takesMarkup ? "&lt;b&gt;x&lt;/b&gt; &amp; \ufffd\n\ty" : "<b>x</b> & \ufffd\n\ty");
    }
}

TEST_F(UserNotificationTest, TellsOnceHowEachNotificationEnded)
{
    {
        FakeNotificationServer server;
        for (int i = 0; i < 5; ++i) add("title", "body");
        ASSERT_TRUE(haveEnded(5));
        server.close(1, 1);
        server.close(2, 2);
        server.invoke(3, "default");
        server.close(3, 2);
        server.close(4, 3);
        server.close(99, 1);
        EXPECT_TRUE(eventually([&] { return responses.size() == 4; }));
    }
    EXPECT_TRUE(eventually([&] { return responses.size() == 5; }));  // the server is gone
    EXPECT_EQ(responses, (std::vector<std::string>{"0", "1", "3default", "2", "2"}));
}

TEST_F(UserNotificationTest, DeliversEachOfAThousandAndReturnsAtOnce)
{
    FakeNotificationServer server;
    for (int i = 0; i < 1000; ++i) add("same", "same");
    EXPECT_TRUE(server.shown.empty());
    ASSERT_TRUE(haveEnded(1000));
    EXPECT_EQ(server.shown.size(), 1000u);
}

class HangingServerTest : public UserNotificationTest {
protected:
    HangingServerTest() : UserNotificationTest(1s) {}
};

TEST_F(HangingServerTest, EveryNotificationFailsInTimeAndLaterOnesWorkAgain)
{
    FakeNotificationServer server;
    server.isHanging = true;
    for (int i = 0; i < 1000; ++i) add("title", "body");
    ASSERT_TRUE(haveEnded(1000));
    for (const auto& end : ends) EXPECT_NE(end, "");
    server.isHanging = false;
    add("title", "body");
    ASSERT_TRUE(haveEnded(1001));
    EXPECT_EQ(ends.back(), "");
}

TEST_F(UserNotificationTest, ARealServerShowsItAndTellsThatItWasClosed)
{
    const Tests::Display display;
    const Tests::ChildProcess dunst({"dunst"}, {.streams = Tests::ChildStreams::silent});
    ASSERT_TRUE(eventually([&] { return settings() == shownAsBanner; }, 20s));
    add("Temperature", "The processor is at <96> degrees & rising.");
    ASSERT_TRUE(haveEnded(1));
    EXPECT_EQ(ends[0], "");
    EXPECT_TRUE(eventually([&] {
        Tests::ChildProcess({"dunstctl", "close"}).wait();  // does nothing before it is on the screen
        return !responses.empty();
    }));
    EXPECT_EQ(responses, std::vector{std::to_string(static_cast<int>(Kind::dismissed))});
}

TEST(ReviewPrompt, OpensThePageOnlyWhenTheUserFollowsIt)
{
    Tests::ReplacedLog log;
    Tests::ReplacedUserNotificationCenter center;
    Tests::ReplacedWorkspace workspace;
    NotificationReviewPrompt("").requestReview();
    EXPECT_TRUE(center->shown.empty());
    EXPECT_EQ(log->count("names no page"), 1u);

    NotificationReviewPrompt prompt("https://example.org/review");
    for (const auto kind : {Kind::dismissed, Kind::action}) {
        EXPECT_TRUE(workspace->openedURLs().empty());
        prompt.requestReview();
        center->respond({kind, "review"});
    }
    ASSERT_EQ(workspace->openedURLs().size(), 1u);
    EXPECT_EQ(workspace->openedURLs()[0].absoluteString(), "https://example.org/review");
}

}  // namespace

}  // namespace Platform
