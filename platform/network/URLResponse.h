#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/network/URLRequest.h"

namespace Platform {

// What came back before the body. Immutable, held shared. Thread: any.
class URLResponse {
public:
    explicit URLResponse(std::string url) : url_(std::move(url)) {}
    virtual ~URLResponse() = default;

    // Where the body came from, after redirects.
    const std::string& url() const { return url_; }

private:
    std::string url_;
};
using URLResponseRef = std::shared_ptr<const URLResponse>;

// The response of an HTTP server.
class HTTPURLResponse final : public URLResponse {
public:
    HTTPURLResponse(std::string url, int statusCode, HeaderFields headers)
        : URLResponse(std::move(url)), statusCode_(statusCode), headers_(std::move(headers))
    {
    }

    // Null where the response is not HTTP.
    static std::shared_ptr<const HTTPURLResponse> from(const URLResponseRef& response)
    {
        return std::dynamic_pointer_cast<const HTTPURLResponse>(response);
    }

    int statusCode() const { return statusCode_; }
    bool isSuccess() const { return statusCode_ >= 200 && statusCode_ <= 299; }
    const HeaderFields& headers() const { return headers_; }
    // The first value of the name, whose case does not matter.
    std::optional<std::string> value(std::string_view name) const;

private:
    int statusCode_;
    HeaderFields headers_;
};

}  // namespace Platform
