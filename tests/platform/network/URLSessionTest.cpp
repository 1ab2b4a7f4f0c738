#include <future>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/network/URLSession.h"
#include "tests/support/Eventually.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/http/TestSite.h"
#include "tests/support/http/TlsServer.h"

namespace Platform {

namespace {

using namespace std::chrono_literals;
using Code = URLError::Code;
using Tests::HttpServer;
using Tests::testSite;

URLRequest requestFor(const std::string& url, std::chrono::nanoseconds timeout = 10s)
{
    URLRequest request(*Url::parse(url));
    request.timeout = timeout;
    return request;
}

// Waits for the one answer of a completion.
FetchOutcome completed(const std::shared_ptr<URLSession>& session, const URLRequest& request)
{
    auto answer = std::make_shared<std::promise<FetchOutcome>>();
    auto future = answer->get_future();
    session->start(request, [answer](FetchOutcome outcome) { answer->set_value(std::move(outcome)); });
    if (future.wait_for(20s) != std::future_status::ready) throw std::runtime_error("no answer");
    return future.get();
}

std::string described(Code code)
{
    return "error " + std::to_string(static_cast<int>(code));
}

std::string described(const FetchOutcome& outcome, const URLRequest& request)
{
    if (outcome.error) {
        EXPECT_FALSE(outcome.data || outcome.response);
        EXPECT_EQ(outcome.error->failingUrl(), request.url.absoluteString());
        EXPECT_FALSE(outcome.error->description().empty());
        return described(outcome.error->code());
    }
    const auto http = HTTPURLResponse::from(outcome.response);
    return (http ? std::to_string(http->statusCode()) : "file") + ' ' +
           std::string(outcome.data->begin(), outcome.data->end());
}

// "200 body" or "error -1001", the same in both forms, each asked in a session of its own.
std::string answer(const URLRequest& request, const URLSessionConfiguration& configuration = {})
{
    const std::string fetched = described(URLSession::ephemeral(configuration)->fetch(request), request);
    EXPECT_EQ(described(completed(URLSession::ephemeral(configuration), request), request), fetched);
    return fetched;
}

TEST(URLSession, BringsEachPage)
{
    HttpServer server(testSite);
    const Tests::TemporaryDirectory folder;
    const std::string file = Url::fromPath(folder.write("a b", "content")).absoluteString();
    const std::pair<std::string, std::string> pages[] = {
        {server.url("/plain?q=1"), "200 /plain?q=1"}, {server.url("/status/204"), "204 "},
        {server.url("/status/404"), "404 text"},      {server.url("/chunked"), "200 hello"},
        {server.url("/gzip"), "200 hello"},           {file, "file content"},
    };
    for (const auto& [url, text] : pages) EXPECT_EQ(answer(requestFor(url)), text) << url;
    // Slower than its time-out as a whole, but never silent for so long.
    EXPECT_EQ(answer(requestFor(server.url("/drip"), 1s)), "200 slowly");
    const auto redirected = URLSession::ephemeral()->fetch(requestFor(server.url("/redirect/20")));
    ASSERT_TRUE(redirected.response);
    EXPECT_EQ(redirected.response->url(), server.url("/echo"));
    EXPECT_EQ(HTTPURLResponse::from(redirected.response)->value("x-TWICE"), "a");
}

TEST(URLSession, NamesEachFault)
{
    HttpServer server(testSite);
    const std::string gone = HttpServer(testSite).url("/");
    const Tests::TemporaryDirectory folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    struct Fault {
        std::string url;
        Code code;
        std::chrono::milliseconds timeout = 10s;
    };
    const Fault faults[] = {
        {gone, Code::cannotConnectToHost},
        {server.url("/silent"), Code::timedOut, 150ms},
        {server.url("/half"), Code::networkConnectionLost},
        {server.url("/garbage"), Code::badServerResponse},
        {server.url("/bad-gzip"), Code::cannotDecodeContentData},
        {server.url("/redirect/21"), Code::httpTooManyRedirects},
        {server.url("/file"), Code::unsupportedURL},
        {"mailto:a@b", Code::unsupportedURL},
        {"http://b%C3%BCcher.invalid/", Code::cannotFindHost},  // as xn--bcher-kva.invalid
        {"file:///nothing/here", Code::fileDoesNotExist},
        {"file://" + folder / "pipe", Code::fileDoesNotExist},
        {server.url("/plain"), Code::timedOut, 0ms},
    };
    for (const auto& [url, code, timeout] : faults) EXPECT_EQ(answer(requestFor(url, timeout)), described(code)) << url;
}

TEST(URLSession, SendsMethodHeadersAndBodyAsGiven)
{
    HttpServer server(testSite);
    URLRequest request = requestFor(server.url("/echo"));
    request.method = "PUT";
    request.body = std::string("a\0b", 3);
    request.cachePolicy = CachePolicy::reloadIgnoringLocalAndRemoteCacheData;
    request.addValue("X-Name", "one");
    request.addValue("x-name", "two");
    request.addValue("X-Empty", "");
    request.addValue("X-Gone", "before");
    request.setValue("x-gone", "after");
    const std::string text = answer(request);
    EXPECT_TRUE(text.starts_with("200 PUT /echo\n")) << text;
    for (const auto line :
         {"X-Name: one\n", "x-name: two\n", "X-Empty: \n", "x-gone: after\n", "Cache-Control: no-cache\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
    }
    EXPECT_EQ(text.find("before"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with(std::string("\na\0b", 4)));
}

TEST(URLSession, RefusesWhatWouldBreakOutOfItsHeader)
{
    HttpServer server(testSite);
    const std::tuple<std::string, std::string, std::string> requests[] = {
        {"GET", "X-A\r\nX-B", "v"},
        {"GET", "X-A", "v\r\nX-B: w"},
        {"GET", "X A", "v"},
        {"GET", "", "v"},
        {"GET", "X-A", std::string("a\0b", 3)},
        {"GET /status/200 HTTP/1.1\r\nX:", "X-A", "v"},
    };
    for (const auto& [method, name, value] : requests) {
        URLRequest request = requestFor(server.url("/echo"));
        request.method = method;
        request.addValue(name, value);
        EXPECT_EQ(answer(request), described(Code::badURL)) << method << " " << name << ": " << value;
    }
    EXPECT_EQ(server.connectionCount(), 0);
}

TEST(URLSession, StopsAtTheCapOfABodyWithoutEnd)
{
    HttpServer server(testSite);
    const std::string refused = described(Code::dataLengthExceedsMaximum);
    const std::tuple<const char*, std::size_t, std::string> rows[] = {
        {"/endless", 1'000'000, refused}, {"/gzip", 5, "200 hello"}, {"/gzip", 4, refused}};
    for (const auto& [path, cap, text] : rows) {
        URLRequest request = requestFor(server.url(path));
        request.maximumBodyBytes = cap;
        EXPECT_EQ(answer(request), text) << path << " " << cap;
    }
}

TEST(URLSession, TrustsOnlyKnownCertificates)
{
    const Tests::TlsServer server;
    const Tests::TlsServer other;
    const URLRequest request = requestFor(server.url());
    EXPECT_EQ(answer(request, {server.certificate()}), "200 hello");
    EXPECT_EQ(answer(request, {other.certificate()}), described(Code::serverCertificateUntrusted));
    EXPECT_EQ(answer(request), described(Code::serverCertificateUntrusted));
}

TEST(URLSession, KeepsConnectionsAndCookiesToItself)
{
    HttpServer server(testSite);
    const URLRequest echo = requestFor(server.url("/echo"));
    const auto hasCookie = [&](const FetchOutcome& outcome) {
        return described(outcome, echo).find("taste=sweet") != std::string::npos;
    };
    const auto first = URLSession::ephemeral();
    first->fetch(requestFor(server.url("/cookie")));
    EXPECT_TRUE(hasCookie(first->fetch(echo)));
    EXPECT_EQ(server.connectionCount(), 1);
    EXPECT_FALSE(hasCookie(URLSession::ephemeral()->fetch(echo)));
    EXPECT_EQ(server.connectionCount(), 2);
    completed(URLSession::shared(), requestFor(server.url("/cookie")));
    EXPECT_TRUE(hasCookie(completed(URLSession::shared(), echo)));
    EXPECT_EQ(server.connectionCount(), 3);
    EXPECT_FALSE(hasCookie(completed(URLSession::ephemeral(), echo)));
    EXPECT_EQ(server.connectionCount(), 4);
}

TEST(URLSession, EveryRequestIsAnsweredOnceWhateverHappensToItsOwner)
{
    HttpServer server(testSite);
    struct Counts {
        std::atomic<int> cancelled = 0;
        std::atomic<int> fetched = 0;
    };
    const auto counts = std::make_shared<Counts>();
    const auto count = [counts](const FetchOutcome& outcome) {
        const bool wasCancelled = outcome.error && outcome.error->code() == Code::cancelled;
        ++(wasCancelled ? counts->cancelled : counts->fetched);
    };
    // More than move at a time, so that some are cancelled while they wait.
    constexpr int silent = 300;
    std::vector<std::shared_ptr<URLSessionTask>> tasks;
    for (int i = 0; i < silent; ++i) {
        tasks.push_back(URLSession::ephemeral()->start(requestFor(server.url("/silent")), count));
    }
    constexpr int answered = 500;
    for (int i = 0; i < answered; ++i) URLSession::shared()->start(requestFor(server.url("/chunked")), count);
    for (const auto& task : tasks) task->cancel();
    tasks.clear();
    // Cancelled before the thread has taken them, or while it does.
    constexpr int dropped = 300;
    for (int i = 0; i < dropped; ++i) {
        URLSession::ephemeral()->start(requestFor(server.url("/silent")), count)->cancel();
    }
    // The completions' own copies go with them, a moment after the calls: this one's and that in `count` stay.
    EXPECT_TRUE(Tests::eventually([&] { return counts.use_count() == 2; }, 20s));
    EXPECT_EQ(counts->cancelled, silent + dropped);
    EXPECT_EQ(counts->fetched, answered);
}

}  // namespace

}  // namespace Platform
