#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "Fennick/web/Pending.h"
#include "Fennick/web/PingResult.h"
#include "platform/network/URLSession.h"

namespace Fennick {

// What a fetch brought.
struct WebResult {
    Platform::Data data;
    Platform::URLResponseRef response;
};

// One-shot HTTP requests. Each operation has two forms: without a completion
// it gives a Pending, whose get() or co_await answers or throws URLError; with
// one, that is called exactly once, on the session's own queue.
//
// URL texts are percent-encoded, except in the raw form: every character that
// a query may not hold, a percent sign included, becomes an escape. A text that
// is no URL afterwards throws the error "unsupported URL"; a fetch's completion
// is then called with nothing at all. Every request has a session of its own,
// of which nothing stays, except post, which uses the shared one. Nothing is
// retried. Thread: any.
class WebRequest {
public:
    using HeaderFields = Platform::HeaderFields;
    using DataCompletion =
        std::function<void(std::optional<Platform::Data> data, std::optional<Platform::URLError> error)>;
    using ResponseCompletion = std::function<void(std::optional<Platform::Data> data, Platform::URLResponseRef response,
                                                  std::optional<Platform::URLError> error)>;
    using PingCompletion = std::function<void(Outcome<PingResult>)>;

    WebRequest() = delete;

    static Pending<WebResult> get(std::string_view url);
    static void get(std::string_view url, DataCompletion completion);
    static Pending<WebResult> getRaw(std::string_view url);
    static void getRaw(std::string_view url, DataCompletion completion);
    static Pending<WebResult> get(std::string_view url, const HeaderFields& headers);
    static void get(std::string_view url, const HeaderFields& headers, ResponseCompletion completion);

    // True exactly when an HTTP response with a status from 200 to 299 arrived
    // and the server was never silent for `timeout` seconds.
    static void isReachable(std::string_view url, double timeout, std::function<void(bool)> completion);

    // The body is sent as it is, as a form ("application/x-www-form-urlencoded").
    static Pending<WebResult> post(std::string_view url, const std::optional<std::string>& body = std::nullopt,
                                   const HeaderFields& headers = {});
    static void post(std::string_view url, const std::optional<std::string>& body, DataCompletion completion);
    static void post(std::string_view url, const std::optional<std::string>& body, const HeaderFields& headers,
                     DataCompletion completion);

    static Pending<WebResult> request(std::string_view method, std::string_view url, const HeaderFields& headers = {});
    static void request(std::string_view method, std::string_view url, const HeaderFields& headers,
                        DataCompletion completion);
    static Pending<WebResult> put(std::string_view url, const HeaderFields& headers = {});
    static void put(std::string_view url, const HeaderFields& headers, DataCompletion completion);
    static Pending<WebResult> delete_(std::string_view url, const HeaderFields& headers = {});
    static void delete_(std::string_view url, const HeaderFields& headers, DataCompletion completion);

    // How long the server takes to answer a HEAD request.
    static Pending<PingResult> ping(std::string_view url, double timeout);
    static void ping(std::string_view url, double timeout, PingCompletion completion);

    // A request made by the caller.
    static void send(const Platform::URLRequest& request, DataCompletion completion);
};

}  // namespace Fennick
