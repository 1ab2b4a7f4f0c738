#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/network/URLSession.h"
#include "platform/network/internal/CurlHandles.h"

namespace Platform {

// What the transfers of one session have in common.
struct SessionSettings {
    URLSessionConfiguration configuration;
    CookieJar cookies;
};

// Whether a transfer may take over and leave behind a connection of its set.
enum class Connections { kept, own };

// One request on its way through one easy handle, from its settings to its
// outcome. Thread: one at a time.
class Transfer {
public:
    using Instant = std::chrono::steady_clock::time_point;

    Transfer(const URLRequest& request, std::shared_ptr<SessionSettings> settings, Connections connections);
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    // Why it is not sent: another scheme, or what HTTP cannot carry (a line
    // break in a header, a method that is no word).
    std::optional<URLError> fault() const;
    // Sets a fresh or reset handle up. It must not outlive this object.
    void prepare(CURL* easy, Instant now);

    // When it fails for want of progress.
    Instant deadline() const;
    FetchOutcome failed(URLError::Code code) const;
    // After the library has ended it.
    FetchOutcome finished(CURLcode code) const;

private:
    static std::size_t onHeader(char* bytes, std::size_t, std::size_t count, void* self);
    static std::size_t onBody(char* bytes, std::size_t, std::size_t count, void* self);
    static int onProgress(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up);

    void setCallbacks();
    void setMethod();
    void setHeaders();
    void addHeaderLine(std::string_view line);
    bool addBody(std::string_view bytes);
    bool takes(std::size_t more) const;

    const URLRequest request_;
    const std::string url_;
    const std::shared_ptr<SessionSettings> settings_;
    const Connections connections_;
    CURL* easy_ = nullptr;
    HeaderList headerLines_;
    HeaderFields responseHeaders_;
    mutable Data body_;
    bool isTooLong_ = false;
    curl_off_t moved_ = 0;
    Instant lastProgress_;
    std::array<char, CURL_ERROR_SIZE> message_{};
};

}  // namespace Platform
