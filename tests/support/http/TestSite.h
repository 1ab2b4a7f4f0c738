#pragma once

#include <map>

#include "tests/support/http/HttpServer.h"

namespace Tests {

inline bool echo(const HttpRequest& request, HttpConnection& connection)
{
    std::string text = request.method + ' ' + request.target + '\n';
    for (const auto& [name, value] : request.headers) text += name + ": " + value + '\n';
    return connection.answer(200, text + '\n' + request.body, "X-Twice: a\r\nX-Twice: b\r\n");
}

inline bool drip(HttpConnection& connection)
{
    bool isSent = connection.send("HTTP/1.1 200 OK\r\n");
    for (const char* part : {"X-Slow: 1\r\n", "X-Slow: 1\r\n", "X-Slow: 1\r\n", "X-Slow: 1\r\n", "X-Slow: 1\r\n",
                             "Content-Length: 6\r\n\r\n", "s", "l", "o", "w", "l", "y"}) {
        std::this_thread::sleep_for(std::chrono::milliseconds(120));
        isSent = isSent && connection.send(part);
    }
    return isSent;
}

// The pages that the network's tests fetch, good and bad.
//
//     /status/404    that status              /echo       the request, a field a line
//     /redirect/3    three steps to /echo     /cookie     sets one
//     /file          to a file of this machine
//     /chunked /gzip /bad-gzip                bodies in forms
//     /drip          a line, a byte at a time /silent     nothing, ever
//     /half /garbage /closed                  no proper response
//     /endless       a body without end
inline bool testSite(const HttpRequest& request, HttpConnection& connection)
{
    using namespace std::string_view_literals;
    struct Page {
        int status;
        std::string_view body;
        const char* headerLines;
    };
    static const std::map<std::string_view, Page> pages = {
        {"/file", {302, "", "Location: file:///etc/hostname\r\n"}},
        {"/cookie", {200, "", "Set-Cookie: taste=sweet\r\n"}},
        {"/gzip",
         {200, "\x1f\x8b\x08\0\0\0\0\0\0\x03\xcbH\xcd\xc9\xc9\x07\0\x86\xa6\x10\x36\x05\0\0\0"sv,
          "Content-Encoding: gzip\r\n"}},
        {"/bad-gzip", {200, "not gzip", "Content-Encoding: gzip\r\n"}},
    };
    static const std::map<std::string_view, const char*> brokenOff = {
        {"/half", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"},
        {"/garbage", "what is this\r\n\r\n"},
        {"/closed", ""},
    };
    const std::string& target = request.target;
    if (const auto page = pages.find(target); page != pages.end()) {
        return connection.answer(page->second.status, page->second.body, page->second.headerLines);
    }
    if (const auto part = brokenOff.find(target); part != brokenOff.end()) {
        return connection.send(part->second), false;
    }
    if (target == "/echo") return echo(request, connection);
    if (target == "/drip") return drip(connection);
    if (target == "/silent") return connection.awaitEnd(), false;
    if (target == "/chunked") {
        return connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n");
    }
    if (target == "/endless") {
        for (bool isSent = connection.send("HTTP/1.1 200 OK\r\n\r\n"); isSent;) {
            isSent = connection.send(std::string(65536, 'x'));
        }
        return false;
    }
    if (target.starts_with("/status/")) {
        return connection.answer(std::stoi(target.substr(8)), request.method == "HEAD" ? "" : "text");
    }
    if (target.starts_with("/redirect/")) {
        const int left = std::stoi(target.substr(10));
        const std::string next = left == 1 ? "/echo" : "/redirect/" + std::to_string(left - 1);
        return connection.answer(302, "ignored", "Location: " + next + "\r\n");
    }
    return connection.answer(200, target);
}

}  // namespace Tests
