#pragma once

#include <stdexcept>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

namespace Tests {

// An HTTPS server for a scope with one page, "hello". It signs its certificate
// for 127.0.0.1 itself, anew each time. Thread: one.
class TlsServer {
public:
    TlsServer()
    {
        // "ACCEPT 127.0.0.1:4711" once it listens.
        auto line = server_.readLine();
        while (line && !line->starts_with("ACCEPT")) line = server_.readLine();
        if (!line) throw std::runtime_error("no server with TLS");
        url_ = "https://" + line->substr(line->find(' ') + 1) + "/page";
    }

    const std::string& url() const { return url_; }
    // The file that a client has to trust.
    std::string certificate() const { return folder_ / "certificate.pem"; }

private:
    static constexpr const char* script = R"(cd "$0" && printf hello >page &&
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 1 \
    -subj /CN=test -addext subjectAltName=IP:127.0.0.1 -keyout key.pem -out certificate.pem &&
exec openssl s_server -accept 127.0.0.1:0 -WWW -key key.pem -cert certificate.pem)";

    TemporaryDirectory folder_;
    ChildProcess server_{{"sh", "-c", script, folder_.path()}, {.streams = ChildStreams::outputAndErrors}};
    std::string url_;
};

}  // namespace Tests
