#include "Fennick/web/WebRequest.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <utility>

#include "platform/runtime/Clock.h"
#include "platform/runtime/Queue.h"
#include "platform/runtime/Utf8.h"

namespace Fennick {

using Platform::CachePolicy;
using Platform::FetchOutcome;
using Platform::HTTPURLResponse;
using Platform::Url;
using Platform::URLError;
using Platform::URLRequest;
using Platform::URLSession;
using Platform::URLSessionTask;

namespace {

// What a URL's query may hold besides letters and digits.
constexpr std::string_view queryPunctuation = "!$&'()*+,-./:;=?@_~";
constexpr std::chrono::seconds usualTimeout(10);

enum class Session { shared, ephemeral };

// A request that may not have come about.
struct Draft {
    std::string text;  // as the caller gave it
    std::optional<URLRequest> request;
    Session session = Session::ephemeral;

    std::shared_ptr<URLSession> openSession() const
    {
        return session == Session::shared ? URLSession::shared() : URLSession::ephemeral();
    }
    URLError unsupported() const { return URLError(URLError::Code::unsupportedURL, text); }
};

Draft rawDraft(std::string_view text, std::string_view url)
{
    Draft draft{std::string(text), std::nullopt};
    if (const auto location = Url::parse(url)) {
        draft.request.emplace(*location);
        draft.request->cachePolicy = CachePolicy::reloadIgnoringLocalAndRemoteCacheData;
        draft.request->timeout = usualTimeout;
    }
    return draft;
}

// The escapes stand for UTF-8, so nothing else can be encoded.
Draft draftOf(std::string_view url)
{
    if (!Platform::isUtf8(url)) return {std::string(url), std::nullopt};
    return rawDraft(url, Platform::percentEncoded(url, queryPunctuation));
}

Draft draftOf(std::string_view method, std::string_view url, const WebRequest::HeaderFields& headers)
{
    Draft draft = draftOf(url);
    if (!draft.request) return draft;
    draft.request->method = method;
    for (const auto& [name, value] : headers) draft.request->addValue(name, value);
    return draft;
}

Draft postDraft(std::string_view url, const std::optional<std::string>& body, const WebRequest::HeaderFields& headers)
{
    Draft draft = draftOf("POST", url, {});
    draft.session = Session::shared;
    if (!draft.request) return draft;
    if (body) {
        draft.request->body = *body;
        draft.request->setValue("Content-Type", "application/x-www-form-urlencoded");
    }
    for (const auto& [name, value] : headers) draft.request->addValue(name, value);
    return draft;
}

std::chrono::nanoseconds timeoutOf(double seconds)
{
    constexpr double longest = 1e9;
    if (!(seconds > 0)) return std::chrono::nanoseconds(0);
    return std::chrono::nanoseconds(std::llround(std::min(seconds, longest) * 1e9));
}

Draft timedDraft(std::string_view method, std::string_view url, double timeout)
{
    Draft draft = draftOf(method, url, {});
    if (draft.request) draft.request->timeout = timeoutOf(timeout);
    return draft;
}

Outcome<WebResult> resultOf(FetchOutcome outcome, const Draft& draft)
{
    if (outcome.error) return *std::move(outcome.error);
    if (!outcome.data || !outcome.response) return URLError(URLError::Code::badServerResponse, draft.text);
    return WebResult{*std::move(outcome.data), std::move(outcome.response)};
}

Outcome<PingResult> pingResultOf(const FetchOutcome& outcome, const Draft& draft, double start)
{
    if (outcome.error) return *outcome.error;
    if (!outcome.response) return URLError(URLError::Code::unknown, draft.text);
    const auto http = HTTPURLResponse::from(outcome.response);
    return PingResult{http && http->isSuccess(), Platform::Clock::shared().wallSeconds() - start};
}

// Both ways of one draft; `read` turns what the session gave into the result.
template <typename T, typename Read>
Pending<T> pending(Draft draft, Read read)
{
    using Callback = typename Pending<T>::Callback;
    const auto shared = std::make_shared<const Draft>(std::move(draft));
    return Pending<T>({
        [shared, read]() -> Outcome<T> {
            if (!shared->request) return shared->unsupported();
            const double start = Platform::Clock::shared().wallSeconds();
            return read(shared->openSession()->fetch(*shared->request), *shared, start);
        },
        [shared, read](Callback callback) -> std::shared_ptr<URLSessionTask> {
            if (!shared->request) {
                Platform::Queue::global().async([callback, shared] { callback(shared->unsupported()); });
                return nullptr;
            }
            const double start = Platform::Clock::shared().wallSeconds();
            return shared->openSession()->start(
                *shared->request, [=](FetchOutcome outcome) { callback(read(std::move(outcome), *shared, start)); });
        },
    });
}

Pending<WebResult> fetch(Draft draft)
{
    return pending<WebResult>(std::move(draft), [](FetchOutcome outcome, const Draft& request, double) {
        return resultOf(std::move(outcome), request);
    });
}

// Where there is no request to send, the answer is an empty outcome.
void start(const Draft& draft, URLSession::Completion completion)
{
    if (draft.request) {
        draft.openSession()->start(*draft.request, std::move(completion));
    } else {
        Platform::Queue::global().async([completion = std::move(completion)] { completion({}); });
    }
}

void start(const Draft& draft, WebRequest::DataCompletion completion)
{
    start(draft, [completion = std::move(completion)](FetchOutcome outcome) {
        completion(std::move(outcome.data), std::move(outcome.error));
    });
}

}  // namespace

Pending<WebResult> WebRequest::get(std::string_view url)
{
    return fetch(draftOf(url));
}

void WebRequest::get(std::string_view url, DataCompletion completion)
{
    start(draftOf(url), std::move(completion));
}

Pending<WebResult> WebRequest::getRaw(std::string_view url)
{
    return fetch(rawDraft(url, url));
}

void WebRequest::getRaw(std::string_view url, DataCompletion completion)
{
    start(rawDraft(url, url), std::move(completion));
}

Pending<WebResult> WebRequest::get(std::string_view url, const HeaderFields& headers)
{
    return fetch(draftOf("GET", url, headers));
}

void WebRequest::get(std::string_view url, const HeaderFields& headers, ResponseCompletion completion)
{
    start(draftOf("GET", url, headers), URLSession::Completion([completion](FetchOutcome outcome) {
              completion(std::move(outcome.data), std::move(outcome.response), std::move(outcome.error));
          }));
}

void WebRequest::isReachable(std::string_view url, double timeout, std::function<void(bool)> completion)
{
    start(timedDraft("GET", url, timeout), URLSession::Completion([completion](const FetchOutcome& outcome) {
              const auto http = HTTPURLResponse::from(outcome.response);
              completion(http && http->isSuccess());
          }));
}

Pending<WebResult> WebRequest::post(std::string_view url, const std::optional<std::string>& body,
                                    const HeaderFields& headers)
{
    return fetch(postDraft(url, body, headers));
}

void WebRequest::post(std::string_view url, const std::optional<std::string>& body, DataCompletion completion)
{
    start(postDraft(url, body, {}), std::move(completion));
}

void WebRequest::post(std::string_view url, const std::optional<std::string>& body, const HeaderFields& headers,
                      DataCompletion completion)
{
    start(postDraft(url, body, headers), std::move(completion));
}

Pending<WebResult> WebRequest::request(std::string_view method, std::string_view url, const HeaderFields& headers)
{
    return fetch(draftOf(method, url, headers));
}

void WebRequest::request(std::string_view method, std::string_view url, const HeaderFields& headers,
                         DataCompletion completion)
{
    start(draftOf(method, url, headers), std::move(completion));
}

Pending<WebResult> WebRequest::put(std::string_view url, const HeaderFields& headers)
{
    return request("PUT", url, headers);
}

void WebRequest::put(std::string_view url, const HeaderFields& headers, DataCompletion completion)
{
    request("PUT", url, headers, std::move(completion));
}

Pending<WebResult> WebRequest::delete_(std::string_view url, const HeaderFields& headers)
{
    return request("DELETE", url, headers);
}

void WebRequest::delete_(std::string_view url, const HeaderFields& headers, DataCompletion completion)
{
    request("DELETE", url, headers, std::move(completion));
}

Pending<PingResult> WebRequest::ping(std::string_view url, double timeout)
{
    return pending<PingResult>(timedDraft("HEAD", url, timeout), &pingResultOf);
}

void WebRequest::ping(std::string_view url, double timeout, PingCompletion completion)
{
    const auto draft = std::make_shared<const Draft>(timedDraft("HEAD", url, timeout));
    const double begin = Platform::Clock::shared().wallSeconds();
    start(*draft, URLSession::Completion([=](const FetchOutcome& outcome) {
        completion(draft->request ? pingResultOf(outcome, *draft, begin) : Outcome<PingResult>(draft->unsupported()));
    }));
}

void WebRequest::send(const Platform::URLRequest& request, DataCompletion completion)
{
    start(Draft{request.url.absoluteString(), request}, std::move(completion));
}

}  // namespace Fennick
