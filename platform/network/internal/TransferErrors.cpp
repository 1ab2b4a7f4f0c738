#include "platform/network/internal/TransferErrors.h"

#include <utility>

#include "platform/network/internal/CurlLibrary.h"

namespace Platform {

namespace {

constexpr std::pair<CURLcode, URLError::Code> codes[] = {
    {CURLE_UNSUPPORTED_PROTOCOL, URLError::Code::unsupportedURL},
    {CURLE_URL_MALFORMAT, URLError::Code::unsupportedURL},
    {CURLE_COULDNT_RESOLVE_HOST, URLError::Code::cannotFindHost},
    {CURLE_COULDNT_RESOLVE_PROXY, URLError::Code::cannotFindHost},
    {CURLE_COULDNT_CONNECT, URLError::Code::cannotConnectToHost},
    {CURLE_OPERATION_TIMEDOUT, URLError::Code::timedOut},
    {CURLE_TOO_MANY_REDIRECTS, URLError::Code::httpTooManyRedirects},
    {CURLE_GOT_NOTHING, URLError::Code::networkConnectionLost},
    {CURLE_PARTIAL_FILE, URLError::Code::networkConnectionLost},
    {CURLE_SEND_ERROR, URLError::Code::networkConnectionLost},
    {CURLE_RECV_ERROR, URLError::Code::networkConnectionLost},
    {CURLE_HTTP2, URLError::Code::badServerResponse},
    {CURLE_HTTP2_STREAM, URLError::Code::badServerResponse},
    {CURLE_WEIRD_SERVER_REPLY, URLError::Code::badServerResponse},
    {CURLE_BAD_CONTENT_ENCODING, URLError::Code::cannotDecodeContentData},
    {CURLE_FILE_COULDNT_READ_FILE, URLError::Code::fileDoesNotExist},
    {CURLE_READ_ERROR, URLError::Code::fileDoesNotExist},
    {CURLE_SSL_CONNECT_ERROR, URLError::Code::secureConnectionFailed},
    {CURLE_PEER_FAILED_VERIFICATION, URLError::Code::serverCertificateUntrusted},
    {CURLE_SSL_CACERT_BADFILE, URLError::Code::secureConnectionFailed},
};

}  // namespace

URLError errorOf(CURLcode code, const std::string& url, const std::string& message)
{
    for (const auto& [theirs, ours] : codes) {
        if (theirs == code) return {ours, url, message};
    }
    return {URLError::Code::unknown, url, message.empty() ? curl().textOf(code) : message};
}

}  // namespace Platform
