#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <thread>

#include "tests/support/http/HttpServer.h"

namespace Tests {

// The pages that the network's tests fetch, good and bad.
//
//     /status/404    that status              /echo       the request, a field a line
//     /redirect/3    three steps to /echo     /loop       for ever
//     /file          to a file of this machine /cookie     sets one
//     /chunked /gzip /bad-gzip                bodies in forms
//     /drip          a line, a byte at a time /silent     nothing, ever
//     /half /garbage /closed                  no proper response
//     /endless       a body without end
inline bool testSite(const HttpRequest& request, HttpConnection& connection)
{
    using namespace std::string_view_literals;
    using Page = bool (*)(const HttpRequest&, HttpConnection&);
    static const std::map<std::string_view, Page> pages = {
        {"/echo",
         [](const HttpRequest& asked, HttpConnection& out) {
             std::string text = asked.method + ' ' + asked.target + '\n';
             for (const auto& [name, value] : asked.headers) text += name + ": " + value + '\n';
             return out.answer(200, text + '\n' + asked.body, "X-Twice: a\r\nX-Twice: b\r\n");
         }},
        {"/loop", [](const HttpRequest&, HttpConnection& out) { return out.answer(302, "", "Location: /loop\r\n"); }},
        {"/file", [](const HttpRequest&,
                     HttpConnection& out) { return out.answer(302, "", "Location: file:///etc/hostname\r\n"); }},
        {"/cookie",
         [](const HttpRequest&, HttpConnection& out) { return out.answer(200, "", "Set-Cookie: taste=sweet\r\n"); }},
        {"/chunked",
         [](const HttpRequest&, HttpConnection& out) {
             return out.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n");
         }},
        {"/gzip",
         [](const HttpRequest&, HttpConnection& out) {
             return out.answer(200, "\x1f\x8b\x08\0\0\0\0\0\0\x03\xcbH\xcd\xc9\xc9\x07\0\x86\xa6\x10\x36\x05\0\0\0"sv,
                               "Content-Encoding: gzip\r\n");
         }},
        {"/bad-gzip", [](const HttpRequest&,
                         HttpConnection& out) { return out.answer(200, "not gzip", "Content-Encoding: gzip\r\n"); }},
        {"/drip",
         [](const HttpRequest&, HttpConnection& out) {
             out.send("HTTP/1.1 200 OK\r\n");
             for (int i = 0; i < 5; ++i) {
                 std::this_thread::sleep_for(std::chrono::milliseconds(120));
                 out.send("X-Slow: 1\r\n");
             }
             out.send("Content-Length: 6\r\n\r\n");
             for (const char c : "slowly"sv) {
                 std::this_thread::sleep_for(std::chrono::milliseconds(120));
                 if (!out.send({&c, 1})) return false;
             }
             return true;
         }},
        {"/silent", [](const HttpRequest&, HttpConnection& out) { return out.awaitEnd(), false; }},
        {"/half",
         [](const HttpRequest&, HttpConnection& out) {
             return out.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"), false;
         }},
        {"/garbage", [](const HttpRequest&, HttpConnection& out) { return out.send("what is this\r\n\r\n"), false; }},
        {"/closed", [](const HttpRequest&, HttpConnection&) { return false; }},
        {"/endless",
         [](const HttpRequest&, HttpConnection& out) {
             out.send("HTTP/1.1 200 OK\r\n\r\n");
             while (out.send(std::string(65536, 'x'))) {
             }
             return false;
         }},
    };
    if (const auto page = pages.find(request.target); page != pages.end()) return page->second(request, connection);
    if (request.target.starts_with("/status/")) {
        return connection.answer(std::stoi(request.target.substr(8)), request.method == "HEAD" ? "" : "text");
    }
    if (request.target.starts_with("/redirect/")) {
        const int left = std::stoi(request.target.substr(10));
        const std::string next = left == 1 ? "/echo" : "/redirect/" + std::to_string(left - 1);
        return connection.answer(302, "ignored", "Location: " + next + "\r\n");
    }
    return connection.answer(200, request.target);
}

}  // namespace Tests
