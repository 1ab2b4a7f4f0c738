#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/network/URLError.h"
#include "platform/network/URLRequest.h"
#include "platform/network/URLResponse.h"
#include "platform/runtime/Data.h"

namespace Platform {

// How a fetch ended: with data and response, or with an error.
struct FetchOutcome {
    std::optional<Data> data;
    URLResponseRef response;
    std::optional<URLError> error;
};

struct URLSessionConfiguration {
    // A PEM file of certificates to trust instead of the system's store.
    std::string certificatesFile;
};

// One fetch on its way. Letting go of it does not end it. Thread: any.
class URLSessionTask {
public:
    virtual ~URLSessionTask() = default;
    // Ends the fetch with the error "cancelled", unless it has ended.
    virtual void cancel() = 0;
};

// Fetches URLs of the schemes http, https and file; follows up to 20 redirects
// (to http and https only), decodes compressed bodies, speaks HTTP/2 over TLS,
// verifies certificates. Cookies live as long as the session, in memory.
//
// Connections and cookies never cross from one session to another.
// Thread: any.
class URLSession {
public:
    using Completion = std::function<void(FetchOutcome)>;

    // The process's session; its connections are kept for further requests.
    static std::shared_ptr<URLSession> shared();
    // A session of its own, of which nothing stays.
    static std::shared_ptr<URLSession> ephemeral(const URLSessionConfiguration& configuration = {});
    virtual ~URLSession() = default;

    // Fetches on the calling thread and waits; no exception, the outcome tells.
    virtual FetchOutcome fetch(const URLRequest& request) = 0;

    // Fetches on the process's network thread. The completion is called exactly
    // once, on the session's own queue, also when session and caller are gone.
    virtual std::shared_ptr<URLSessionTask> start(const URLRequest& request, Completion completion) = 0;
};

}  // namespace Platform
