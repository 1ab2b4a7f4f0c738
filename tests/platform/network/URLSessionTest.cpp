#include <future>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/network/URLSession.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/http/TestSite.h"

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

// The outcome in both forms, each in a session of its own: "200 body" or the error's number.
std::vector<std::string> bothForms(const URLRequest& request, const URLSessionConfiguration& configuration = {})
{
    std::vector<std::string> texts;
    for (const auto& outcome : {URLSession::ephemeral(configuration)->fetch(request),
                                completed(URLSession::ephemeral(configuration), request)}) {
        if (outcome.error) {
            EXPECT_FALSE(outcome.data || outcome.response);
            EXPECT_EQ(outcome.error->failingUrl(), request.url.absoluteString());
            EXPECT_FALSE(outcome.error->description().empty());
            texts.push_back(std::to_string(static_cast<int>(outcome.error->code())));
            continue;
        }
        const auto http = HTTPURLResponse::from(outcome.response);
        const std::string body(outcome.data->begin(), outcome.data->end());
        texts.push_back((http ? std::to_string(http->statusCode()) : "file") + ' ' + body);
    }
    return texts;
}

std::vector<std::string> twice(const std::string& text)
{
    return {text, text};
}
std::vector<std::string> twice(Code code)
{
    return twice(std::to_string(static_cast<int>(code)));
}

TEST(URLSession, BringsEachPageInBothForms)
{
    HttpServer server(testSite);
    const std::pair<std::string, std::string> pages[] = {
        {"/plain?q=1", "200 /plain?q=1"}, {"/status/204", "204 "},   {"/status/404", "404 text"},
        {"/status/500", "500 text"},      {"/chunked", "200 hello"}, {"/gzip", "200 hello"},
    };
    for (const auto& [path, text] : pages) EXPECT_EQ(bothForms(requestFor(server.url(path))), twice(text)) << path;
    // Slower than its time-out as a whole, but never silent for so long.
    EXPECT_EQ(bothForms(requestFor(server.url("/drip"), 500ms)), twice("200 slowly"));
    const auto redirected = URLSession::ephemeral()->fetch(requestFor(server.url("/redirect/20")));
    ASSERT_TRUE(redirected.response);
    EXPECT_EQ(redirected.response->url(), server.url("/echo"));
    EXPECT_EQ(HTTPURLResponse::from(redirected.response)->value("x-TWICE"), "a");
}

TEST(URLSession, NamesEachFaultInBothForms)
{
    HttpServer server(testSite);
    std::string refused;
    {
        HttpServer gone(testSite);
        refused = gone.url("/");
    }
    const Tests::TemporaryDirectory folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    struct Fault {
        std::string url;
        Code code;
        std::chrono::milliseconds timeout = 10s;
    };
    const Fault faults[] = {
        {refused, Code::cannotConnectToHost},
        {server.url("/silent"), Code::timedOut, 150ms},
        {server.url("/half"), Code::networkConnectionLost},
        {server.url("/closed"), Code::networkConnectionLost},
        {server.url("/garbage"), Code::badServerResponse},
        {server.url("/bad-gzip"), Code::cannotDecodeContentData},
        {server.url("/loop"), Code::httpTooManyRedirects},
        {server.url("/redirect/21"), Code::httpTooManyRedirects},
        {server.url("/file"), Code::unsupportedURL},
        {"ftp://127.0.0.1/", Code::unsupportedURL},
        {"mailto:a@b", Code::unsupportedURL},
        {"http://name.invalid/", Code::cannotFindHost},
        {"http://b%C3%BCcher.invalid/", Code::cannotFindHost},  // as xn--bcher-kva.invalid
        {"file:///nothing/here", Code::fileDoesNotExist},
        {"file://" + folder / "pipe", Code::fileDoesNotExist},
        {server.url("/plain"), Code::timedOut, 0ms},
    };
    for (const auto& [url, code, timeout] : faults) EXPECT_EQ(bothForms(requestFor(url, timeout)), twice(code)) << url;
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
    for (const std::string& text : bothForms(request)) {
        EXPECT_TRUE(text.starts_with("200 PUT /echo\n")) << text;
        for (const auto line :
             {"X-Name: one\n", "x-name: two\n", "X-Empty: \n", "x-gone: after\n", "Cache-Control: no-cache\n"}) {
            EXPECT_NE(text.find(line), std::string::npos) << line << text;
        }
        EXPECT_EQ(text.find("before"), std::string::npos);
        EXPECT_EQ(text.find("Content-Type"), std::string::npos) << text;
        EXPECT_TRUE(text.ends_with(std::string("\na\0b", 4)));
    }
}

TEST(URLSession, RefusesWhatWouldBreakOutOfItsHeader)
{
    HttpServer server(testSite);
    const std::pair<std::string, std::string> fields[] = {
        {"X-A\r\nX-B", "v"}, {"X-A", "v\r\nX-B: w"},          {"X-A", "v\n"}, {"X A", "v"},
        {"", "v"},           {"X-A", std::string("a\0b", 3)}, {"X:", "v"},
    };
    for (const auto& [name, value] : fields) {
        URLRequest request = requestFor(server.url("/echo"));
        request.addValue(name, value);
        EXPECT_EQ(bothForms(request), twice(Code::badURL)) << name;
    }
    URLRequest request = requestFor(server.url("/echo"));
    request.method = "GET /status/200 HTTP/1.1\r\nX:";
    EXPECT_EQ(bothForms(request), twice(Code::badURL));
    EXPECT_EQ(server.connectionCount(), 0);
}

TEST(URLSession, StopsAtTheCapOfABodyWithoutEnd)
{
    HttpServer server(testSite);
    URLRequest request = requestFor(server.url("/endless"));
    request.maximumBodyBytes = 1'000'000;
    EXPECT_EQ(bothForms(request), twice(Code::dataLengthExceedsMaximum));
    request.url = *Url::parse(server.url("/gzip"));
    request.maximumBodyBytes = 5;
    EXPECT_EQ(bothForms(request), twice("200 hello"));
    request.maximumBodyBytes = 4;
    EXPECT_EQ(bothForms(request), twice(Code::dataLengthExceedsMaximum));
}

TEST(URLSession, ReadsFilesAsResponsesThatAreNotHttp)
{
    Tests::TemporaryDirectory folder;
    const Url file = Url::fromPath(folder.write("a b", "content"));
    EXPECT_EQ(bothForms(requestFor(file.absoluteString())), twice("file content"));
}

TEST(URLSession, TrustsOnlyKnownCertificates)
{
    const Tests::TlsIdentity identity;
    HttpServer server(testSite, &identity);
    const URLRequest request = requestFor(server.url("/chunked"));
    EXPECT_EQ(bothForms(request), twice(Code::serverCertificateUntrusted));
    EXPECT_EQ(bothForms(request, {identity.certificate()}), twice("200 hello"));
    const Tests::TlsIdentity other;
    EXPECT_EQ(bothForms(request, {other.certificate()}), twice(Code::serverCertificateUntrusted));
}

TEST(URLSession, KeepsConnectionsAndCookiesToItself)
{
    HttpServer server(testSite);
    const auto cookieOf = [&](const std::shared_ptr<URLSession>& session) {
        const auto outcome = session->fetch(requestFor(server.url("/echo")));
        return std::string(outcome.data->begin(), outcome.data->end()).find("taste=sweet") != std::string::npos;
    };
    const auto first = URLSession::ephemeral();
    first->fetch(requestFor(server.url("/cookie")));
    EXPECT_TRUE(cookieOf(first));
    EXPECT_EQ(server.connectionCount(), 1);
    EXPECT_FALSE(cookieOf(URLSession::ephemeral()));
    EXPECT_EQ(server.connectionCount(), 2);

    completed(URLSession::shared(), requestFor(server.url("/cookie")));
    completed(URLSession::shared(), requestFor(server.url("/echo")));
    EXPECT_EQ(server.connectionCount(), 3);
    EXPECT_TRUE(cookieOf(URLSession::shared()));
    completed(URLSession::ephemeral(), requestFor(server.url("/echo")));
    EXPECT_EQ(server.connectionCount(), 5);
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
    for (const auto& task : tasks) task->cancel();
    tasks.clear();
    // Cancelled before the thread has taken them, or while it does.
    constexpr int dropped = 300;
    for (int i = 0; i < dropped; ++i) {
        URLSession::ephemeral()->start(requestFor(server.url("/silent")), count)->cancel();
    }
    const auto last = completed(URLSession::shared(), requestFor(server.url("/chunked")));
    EXPECT_TRUE(last.response);
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    // The completions' own copies go with them, a moment after the calls.
    while (counts.use_count() > 2 && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    EXPECT_EQ(counts->cancelled, silent + dropped);
    EXPECT_EQ(counts->fetched, answered);
    EXPECT_EQ(counts.use_count(), 2);  // no completion is kept: this one's and the copy in `count`
}

}  // namespace

}  // namespace Platform
