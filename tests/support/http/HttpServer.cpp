#include "tests/support/http/HttpServer.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Tests {

namespace {

// A proxy of the user's is no way to this server. Before main, while no thread reads the environment.
const int isWithoutProxy = ::setenv("no_proxy", "*", 1);

// The request at the front of the bytes, taken off them; absent when not whole.
std::optional<HttpRequest> takeRequest(std::string& bytes)
{
    const std::size_t end = bytes.find("\r\n\r\n");
    if (end == std::string::npos) return std::nullopt;
    HttpRequest request;
    std::size_t size = 0;
    std::istringstream head(bytes.substr(0, end + 2));
    std::string line;
    head >> request.method >> request.target;
    std::getline(head, line);
    while (std::getline(head, line)) {
        line.pop_back();  // the carriage return
        const std::size_t colon = line.find(':');
        const std::size_t value = std::min(line.find_first_not_of(' ', colon + 1), line.size());
        const auto& header = request.headers.emplace_back(line.substr(0, colon), line.substr(value));
        if (header.first == "Content-Length") size = std::stoul(header.second);
    }
    if (bytes.size() < end + 4 + size) return std::nullopt;
    request.body = bytes.substr(end + 4, size);
    bytes.erase(0, end + 4 + size);
    return request;
}

}  // namespace

bool HttpConnection::answer(int status, std::string_view body, const std::string& headerLines)
{
    const bool hasBody = status != 204 && status != 304;
    const std::string length = hasBody ? "Content-Length: " + std::to_string(body.size()) + "\r\n" : "";
    return send("HTTP/1.1 " + std::to_string(status) + " Text\r\n" + headerLines + length + "\r\n" +
                std::string(hasBody ? body : ""));
}

class HttpServer::Socket final : public HttpConnection {
public:
    explicit Socket(Platform::FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    bool send(std::string_view bytes) override
    {
        while (!bytes.empty()) {
            const auto sent = ::send(descriptor_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }

    bool receive(std::string& bytes)
    {
        char chunk[16384];
        const auto count = ::recv(descriptor_.get(), chunk, sizeof chunk, 0);
        if (count > 0) bytes.append(chunk, static_cast<std::size_t>(count));
        return count > 0;
    }

    void awaitEnd() override
    {
        std::string ignored;
        while (receive(ignored)) ignored.clear();
    }

    void shutDown() const { ::shutdown(descriptor_.get(), SHUT_RDWR); }

private:
    Platform::FileDescriptor descriptor_;
};

HttpServer::HttpServer(Handler handler)
    : handler_(std::move(handler)), listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    const bool isListening = ::bind(listener_.get(), generic, length) == 0 && ::listen(listener_.get(), 1024) == 0 &&
                             ::getsockname(listener_.get(), generic, &length) == 0;
    if (!isListening) throw std::runtime_error("no server on 127.0.0.1");
    port_ = ntohs(address.sin_port);
    acceptor_ = std::thread([this] { accept(); });
}

HttpServer::~HttpServer()
{
    ::shutdown(listener_.get(), SHUT_RDWR);
    acceptor_.join();
    for (const auto& socket : sockets_) socket->shutDown();
    for (auto& thread : threads_) thread.join();
}

std::string HttpServer::url(std::string_view path) const
{
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

void HttpServer::accept()
{
    for (;;) {
        Platform::FileDescriptor descriptor(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!descriptor) return;  // shut down
        ++accepted_;
        auto& socket = *sockets_.emplace_back(std::make_unique<Socket>(std::move(descriptor)));
        threads_.emplace_back([this, &socket] {
            serve(socket);
            socket.shutDown();
        });
    }
}

void HttpServer::serve(Socket& socket) const
{
    std::string bytes;
    for (;;) {
        auto request = takeRequest(bytes);
        if (!request && !socket.receive(bytes)) return;
        if (request && !handler_(*request, socket)) return;
    }
}

}  // namespace Tests
