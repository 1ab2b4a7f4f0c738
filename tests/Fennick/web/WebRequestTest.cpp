#include <coroutine>
#include <future>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Fennick/web/WebRequest.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/support/http/TestSite.h"

namespace Fennick {

namespace {

using namespace std::chrono_literals;
using Platform::URLError;
using Tests::HttpServer;
using Tests::testSite;

// Starts at once and cleans up after itself; or is destroyed while it waits.
struct Job {
    struct promise_type {
        Job get_return_object() { return {std::coroutine_handle<promise_type>::from_promise(*this)}; }
        std::suspend_never initial_suspend() { return {}; }
        std::suspend_never final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { std::terminate(); }
    };
    std::coroutine_handle<promise_type> handle;
};

// The result's body, or the error's number.
Job await(Pending<WebResult> pending, std::promise<std::string>& answer)
{
    try {
        const WebResult result = co_await pending;
        answer.set_value({result.data.begin(), result.data.end()});
    } catch (const URLError& error) {
        answer.set_value(std::to_string(static_cast<int>(error.code())));
    }
}

std::string within20s(std::future<std::string> answer)
{
    return answer.wait_for(20s) == std::future_status::ready ? answer.get() : "no answer";
}

std::string got(Pending<WebResult> pending)
{
    std::promise<std::string> answer;
    await(std::move(pending), answer);
    return within20s(answer.get_future());
}

// What a completion was called with: "data", "error", "nothing".
template <typename Start>
std::string called(Start start)
{
    auto answer = std::make_shared<std::promise<std::string>>();
    start([answer](const std::optional<Platform::Data>& data, const std::optional<URLError>& error) {
        answer->set_value(data ? "data" : error ? "error" : "nothing");
    });
    return within20s(answer->get_future());
}

TEST(WebRequest, EncodesUrlTextsAndLeavesRawOnesAlone)
{
    HttpServer server(testSite);
    const std::pair<std::string, std::string> cases[] = {
        {"/a b", "/a%20b"}, {"/100%", "/100%25"},
        {"/%20", "/%2520"}, {"/\u00e9?k=v&l=;/@:", "/%C3%A9?k=v&l=;/@:"},
        {"/a#b", "/a%23b"}, {"/[x]|{y}", "/%5Bx%5D%7C%7By%7D"},
    };
    for (const auto& [path, onWire] : cases) EXPECT_EQ(got(WebRequest::get(server.url(path))), onWire);
    EXPECT_EQ(got(WebRequest::getRaw(server.url("/%20"))), "/%20");
}

TEST(WebRequest, FailsWithUnsupportedUrlWhereTheTextIsNone)
{
    const std::string unsupported = std::to_string(static_cast<int>(URLError::Code::unsupportedURL));
    for (const std::string text : {"", "nothing", "//host", ":", "http://127.0.0.1/\xff"}) {
        EXPECT_EQ(got(WebRequest::get(text)), unsupported) << text;
        EXPECT_EQ(called([&](auto completion) { WebRequest::get(text, completion); }), "nothing") << text;
    }
    EXPECT_EQ(got(WebRequest::getRaw("http://127.0.0.1/a b")), unsupported);
    EXPECT_THROW(WebRequest::ping("", 1).get(), URLError);
}

TEST(WebRequest, EachOperationSendsItsMethodBodyAndHeaders)
{
    using namespace testing;
    HttpServer server(testSite);
    const std::string url = server.url("/echo");
    const WebRequest::HeaderFields headers{{"X-A", "1"}, {"X-A", "2"}};
    const std::string form = "Content-Type: application/x-www-form-urlencoded\n";
    EXPECT_THAT(got(WebRequest::post(url, "a=b&c=%20")),
                AllOf(StartsWith("POST /echo\n"), HasSubstr(form), EndsWith("\n\na=b&c=%20")));
    EXPECT_THAT(got(WebRequest::post(url)), Not(HasSubstr("Content-Type")));
    EXPECT_THAT(got(WebRequest::request("PATCH", url)), AllOf(StartsWith("PATCH /echo\n"), EndsWith("\n\n")));
    EXPECT_THAT(got(WebRequest::delete_(url)), StartsWith("DELETE /echo\n"));
    EXPECT_THAT(got(WebRequest::get(url, headers)), HasSubstr("X-A: 1\nX-A: 2\n"));
    EXPECT_EQ(called([&](auto completion) { WebRequest::post(url, "x", headers, completion); }), "data");
    EXPECT_EQ(called([&](auto completion) { WebRequest::put(server.url("/closed"), {}, completion); }), "error");
    const Platform::URLRequest own(*Platform::Url::parse(url));
    EXPECT_EQ(called([&](auto completion) { WebRequest::send(own, completion); }), "data");
}

TEST(WebRequest, PingTellsSuccessByStatusAndThrowsWhatTheTransportSays)
{
    HttpServer server(testSite);
    EXPECT_TRUE(WebRequest::ping(server.url("/status/204"), 5).get().isSuccess);
    EXPECT_FALSE(WebRequest::ping(server.url("/status/404"), 5).get().isSuccess);
    EXPECT_THROW(WebRequest::ping(server.url("/silent"), 0.1).get(), URLError);
    EXPECT_FALSE(WebRequest::ping("file:///etc/passwd", 5).get().isSuccess);
    for (const auto& [path, isReachable] :
         {std::pair("/status/200", true), {"/status/301", false}, {"/closed", false}}) {
        const auto reached = std::make_shared<std::promise<bool>>();
        auto answer = reached->get_future();
        WebRequest::isReachable(server.url(path), 5, [reached](bool flag) { reached->set_value(flag); });
        ASSERT_EQ(answer.wait_for(std::chrono::seconds(20)), std::future_status::ready) << path;
        EXPECT_EQ(answer.get(), isReachable) << path;
    }
}

TEST(WebRequest, PingMeasuresByTheWallClockAndTimesOutByTheOther)
{
    Tests::ReplacedClock clock;
    HttpServer server([&](const Tests::HttpRequest&, Tests::HttpConnection& out) {
        clock->setWall(clock->wallSeconds() + 2.5);
        return out.answer(200, "");
    });
    EXPECT_DOUBLE_EQ(WebRequest::ping(server.url("/"), 1).get().responseTime, 2.5);
}

TEST(WebRequest, ACoroutineDestroyedWhileItWaitsEndsItsRequest)
{
    std::promise<void> hasArrived;
    std::promise<void> hasEnded;
    HttpServer server([&](const Tests::HttpRequest&, Tests::HttpConnection& out) {
        hasArrived.set_value();
        out.awaitEnd();
        hasEnded.set_value();
        return false;
    });
    std::promise<std::string> answer;
    auto future = answer.get_future();
    const Job job = await(WebRequest::get(server.url("/")), answer);
    ASSERT_EQ(hasArrived.get_future().wait_for(10s), std::future_status::ready);
    job.handle.destroy();
    EXPECT_EQ(hasEnded.get_future().wait_for(10s), std::future_status::ready);
    EXPECT_EQ(future.wait_for(0s), std::future_status::timeout);
}

}  // namespace

}  // namespace Fennick
