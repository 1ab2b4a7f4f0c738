#include "platform/network/URLError.h"

#include <string_view>
#include <utility>

namespace Platform {

namespace {

constexpr std::pair<URLError::Code, std::string_view> descriptions[] = {
    {URLError::Code::unknown, "The request failed for an unknown reason."},
    {URLError::Code::cancelled, "The request was cancelled."},
    {URLError::Code::badURL, "The request cannot be sent."},
    {URLError::Code::timedOut, "The request timed out."},
    {URLError::Code::unsupportedURL, "The URL is not supported."},
    {URLError::Code::cannotFindHost, "The host could not be found."},
    {URLError::Code::cannotConnectToHost, "The host could not be reached."},
    {URLError::Code::networkConnectionLost, "The connection was lost."},
    {URLError::Code::httpTooManyRedirects, "The server redirected too often."},
    {URLError::Code::badServerResponse, "The server gave no proper response."},
    {URLError::Code::cannotDecodeContentData, "The content could not be decoded."},
    {URLError::Code::cannotParseResponse, "The response could not be read."},
    {URLError::Code::fileDoesNotExist, "The file could not be read."},
    {URLError::Code::dataLengthExceedsMaximum, "The content is larger than allowed."},
    {URLError::Code::secureConnectionFailed, "A secure connection could not be made."},
    {URLError::Code::serverCertificateUntrusted, "The server's certificate is not trusted."},
};

std::string_view descriptionOf(URLError::Code code)
{
    for (const auto& [known, text] : descriptions) {
        if (known == code) return text;
    }
    return descriptions[0].second;
}

}  // namespace

URLError::URLError(Code code, std::string failingUrl, std::string description)
    : code_(code),
      failingUrl_(std::move(failingUrl)),
      description_(description.empty() ? std::string(descriptionOf(code)) : std::move(description))
{
    what_ = failingUrl_.empty() ? description_ : description_ + " (" + failingUrl_ + ')';
}

}  // namespace Platform
