#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/runtime/FileDescriptor.h"

namespace Tests {

// One request as it stood on the wire.
struct HttpRequest {
    std::string method;
    std::string target;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
};

// A server's end of one connection.
class HttpConnection {
public:
    virtual ~HttpConnection() = default;
    // False when the client has gone.
    virtual bool send(std::string_view bytes) = 0;
    // Status line, the header lines given (each with its line break), length and body.
    bool answer(int status, std::string_view body, const std::string& headerLines = {});
    // Blocks until the client goes or the server stops.
    virtual void awaitEnd() = 0;
};

// An HTTP/1.1 server on 127.0.0.1 for a scope, a thread a connection. The
// handler answers each request and returns whether the connection stays.
// Thread: the handler runs on many.
class HttpServer {
public:
    using Handler = std::function<bool(const HttpRequest&, HttpConnection&)>;

    explicit HttpServer(Handler handler);
    ~HttpServer();

    // "http://127.0.0.1:4711" and the path.
    std::string url(std::string_view path) const;
    int connectionCount() const { return accepted_; }

private:
    class Socket;
    void accept();
    void serve(Socket& socket) const;

    const Handler handler_;
    Platform::FileDescriptor listener_;
    int port_ = 0;
    std::atomic<int> accepted_ = 0;
    std::list<std::unique_ptr<Socket>> sockets_;
    std::vector<std::thread> threads_;
    std::thread acceptor_;
};

}  // namespace Tests
