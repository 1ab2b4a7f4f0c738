#include "platform/network/internal/Transfer.h"

#include <algorithm>
#include <new>
#include <utility>

#include <sys/stat.h>

#include "platform/network/internal/HeaderText.h"
#include "platform/network/internal/TransferErrors.h"

namespace Platform {

namespace {

constexpr long mostRedirects = 20;
constexpr std::size_t largestReservation = 16u << 20;  // what a server announces is only believed up to here
constexpr std::string_view requestProtocols = "http,https,file";
constexpr std::string_view redirectProtocols = "http,https";

bool hasHeader(const HeaderFields& headers, std::string_view name)
{
    return std::any_of(headers.begin(), headers.end(),
                       [&](const auto& field) { return isSameHeader(field.first, name); });
}

// Opening a pipe or a device waits for somebody at its other end, and would hold up every other transfer.
bool isPlainFile(const std::string& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The library's frames cannot be unwound: want of memory ends the transfer as a failure.
template <typename Step>
bool orFailure(Step step)
{
    try {
        return step();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

template <typename Value>
void set(CURL* easy, CURLoption option, Value value)
{
    curl().setOption(easy, option, value);
}

}  // namespace

Transfer::Transfer(const URLRequest& request, std::shared_ptr<SessionSettings> settings, Connections connections)
    : request_(request), url_(request.url.absoluteString()), settings_(std::move(settings)), connections_(connections)
{
}

std::optional<URLError> Transfer::fault() const
{
    const std::string& scheme = request_.url.scheme();
    const bool isKnown = scheme == "http" || scheme == "https" || scheme == "file";
    if (!isKnown) return URLError(URLError::Code::unsupportedURL, url_);
    if (scheme == "file" && !isPlainFile(request_.url.path())) return URLError(URLError::Code::fileDoesNotExist, url_);
    if (!isHttpToken(request_.method)) return URLError(URLError::Code::badURL, url_, "The method is not one of HTTP.");
    for (const auto& [name, value] : request_.headers()) {
        if (isHttpToken(name) && isHeaderValue(value)) continue;
        return URLError(URLError::Code::badURL, url_, "A header field holds what HTTP cannot carry.");
    }
    return std::nullopt;
}

void Transfer::prepare(CURL* easy, Instant now)
{
    easy_ = easy;
    lastProgress_ = now;
    set(easy, CURLOPT_URL, url_.c_str());
    set(easy, CURLOPT_PROTOCOLS_STR, requestProtocols.data());
    set(easy, CURLOPT_REDIR_PROTOCOLS_STR, redirectProtocols.data());
    set(easy, CURLOPT_FOLLOWLOCATION, 1L);
    set(easy, CURLOPT_MAXREDIRS, mostRedirects);
    set(easy, CURLOPT_ACCEPT_ENCODING, "");
    set(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
    set(easy, CURLOPT_NOSIGNAL, 1L);
    set(easy, CURLOPT_QUICK_EXIT, 1L);
    set(easy, CURLOPT_CONNECTTIMEOUT_MS, 24L * 60 * 60 * 1000);  // ours is the deadline that counts
    set(easy, CURLOPT_COOKIEFILE, "");                           // takes cookies, from no file
    const std::string& certificates = settings_->configuration.certificatesFile;
    if (!certificates.empty()) set(easy, CURLOPT_CAINFO, certificates.c_str());
    if (connections_ == Connections::own) {
        set(easy, CURLOPT_FRESH_CONNECT, 1L);
        set(easy, CURLOPT_FORBID_REUSE, 1L);
        set(easy, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    }
    settings_->cookies.attach(easy);
    setCallbacks();
    setMethod();
    setHeaders();
}

void Transfer::setCallbacks()
{
    set(easy_, CURLOPT_ERRORBUFFER, message_.data());
    set(easy_, CURLOPT_HEADERFUNCTION, &Transfer::onHeader);
    set(easy_, CURLOPT_HEADERDATA, this);
    set(easy_, CURLOPT_WRITEFUNCTION, &Transfer::onBody);
    set(easy_, CURLOPT_WRITEDATA, this);
    set(easy_, CURLOPT_XFERINFOFUNCTION, &Transfer::onProgress);
    set(easy_, CURLOPT_XFERINFODATA, this);
    set(easy_, CURLOPT_NOPROGRESS, 0L);
}

// GET, HEAD and POST by the library's own words, so that redirects change them
// as browsers do; every other method goes out as it is.
void Transfer::setMethod()
{
    if (request_.method == "HEAD") {
        set(easy_, CURLOPT_NOBODY, 1L);
    } else if (request_.body) {
        set(easy_, CURLOPT_POST, 1L);
        set(easy_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.body->size()));
        set(easy_, CURLOPT_POSTFIELDS, request_.body->data());
        if (request_.method != "POST") set(easy_, CURLOPT_CUSTOMREQUEST, request_.method.c_str());
    } else if (request_.method == "POST") {
        set(easy_, CURLOPT_POST, 1L);
        set(easy_, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{0});
        set(easy_, CURLOPT_POSTFIELDS, "");
    } else if (request_.method != "GET") {
        set(easy_, CURLOPT_CUSTOMREQUEST, request_.method.c_str());
    }
}

void Transfer::setHeaders()
{
    // An empty value has a notation of its own; "Name:" would take the field out.
    for (const auto& [name, value] : request_.headers()) {
        std::string line = name;
        line += withoutOuterSpace(value).empty() ? ";" : ": " + value;
        append(headerLines_, line);
    }
    const auto& given = request_.headers();
    // What the library would add by itself and nobody asked for.
    if (!hasHeader(given, "Expect")) append(headerLines_, "Expect:");
    if (!hasHeader(given, "Content-Type")) append(headerLines_, "Content-Type:");
    if (request_.cachePolicy == CachePolicy::reloadIgnoringLocalAndRemoteCacheData) {
        if (!hasHeader(given, "Cache-Control")) append(headerLines_, "Cache-Control: no-cache");
        if (!hasHeader(given, "Pragma")) append(headerLines_, "Pragma: no-cache");
    }
    set(easy_, CURLOPT_HTTPHEADER, headerLines_.get());
}

Transfer::Instant Transfer::deadline() const
{
    const auto latest = Instant::max() - lastProgress_;
    const auto timeout = std::max(request_.timeout, std::chrono::nanoseconds(0));
    return timeout < latest ? lastProgress_ + timeout : Instant::max();
}

std::size_t Transfer::onHeader(char* bytes, std::size_t, std::size_t count, void* self)
{
    auto* transfer = static_cast<Transfer*>(self);
    transfer->lastProgress_ = std::chrono::steady_clock::now();  // the library counts bodies only
    return orFailure([&] { return transfer->addHeaderLine({bytes, count}), true; }) ? count : CURL_WRITEFUNC_ERROR;
}

// Each response of a redirection starts with its status line.
void Transfer::addHeaderLine(std::string_view line)
{
    if (line.starts_with("HTTP/")) {
        responseHeaders_.clear();
        body_.clear();
        return;
    }
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    responseHeaders_.emplace_back(line.substr(0, colon), withoutOuterSpace(line.substr(colon + 1)));
}

std::size_t Transfer::onBody(char* bytes, std::size_t, std::size_t count, void* self)
{
    auto* transfer = static_cast<Transfer*>(self);
    return orFailure([&] { return transfer->addBody({bytes, count}); }) ? count : CURL_WRITEFUNC_ERROR;
}

bool Transfer::takes(std::size_t more) const
{
    return !request_.maximumBodyBytes || more <= *request_.maximumBodyBytes - body_.size();
}

bool Transfer::addBody(std::string_view bytes)
{
    isTooLong_ = !takes(bytes.size());
    if (isTooLong_) return false;
    if (body_.empty()) {
        curl_off_t announced = 0;
        curl().getInfo(easy_, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
        if (announced > 0) body_.reserve(std::min(static_cast<std::size_t>(announced), largestReservation));
    }
    body_.insert(body_.end(), bytes.begin(), bytes.end());
    return true;
}

int Transfer::onProgress(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up)
{
    auto* transfer = static_cast<Transfer*>(self);
    if (down + up != transfer->moved_) transfer->lastProgress_ = std::chrono::steady_clock::now();
    transfer->moved_ = down + up;
    return 0;
}

FetchOutcome Transfer::failed(URLError::Code code) const
{
    return {std::nullopt, nullptr, URLError(code, url_)};
}

FetchOutcome Transfer::finished(CURLcode code) const
{
    if (isTooLong_) return failed(URLError::Code::dataLengthExceedsMaximum);
    // The library calls an answer without a status line an older protocol.
    const bool isGarbled =
        code == CURLE_UNSUPPORTED_PROTOCOL && request_.url.scheme().starts_with("http") && responseHeaders_.empty();
    if (isGarbled) return failed(URLError::Code::badServerResponse);
    if (code != CURLE_OK) return {std::nullopt, nullptr, errorOf(code, url_, message_.data())};
    long status = 0;
    char* effective = nullptr;
    curl().getInfo(easy_, CURLINFO_RESPONSE_CODE, &status);
    curl().getInfo(easy_, CURLINFO_EFFECTIVE_URL, &effective);
    std::string url = effective != nullptr ? effective : url_;
    URLResponseRef response;
    if (status > 0) {
        response = std::make_shared<HTTPURLResponse>(std::move(url), static_cast<int>(status), responseHeaders_);
    } else {
        response = std::make_shared<URLResponse>(std::move(url));
    }
    return {std::move(body_), std::move(response), std::nullopt};
}

}  // namespace Platform
