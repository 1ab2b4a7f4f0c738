// Requests over the loopback interface, kept alive and fresh, ours beside the
// bare library and Qt; the server is ours, in this process.
#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include <curl/curl.h>

#include "Fennick/web/WebRequest.h"
#include "benchmarks/Interleaved.h"
#include "tests/support/http/HttpServer.h"

namespace {

constexpr char form[] = "name=value&other=value";
constexpr int parallel = 100;
constexpr int rounds = 31;

const std::string& url()
{
    static Tests::HttpServer server([](const Tests::HttpRequest& request, Tests::HttpConnection& connection) {
        return connection.answer(200, request.body + "0123456789");
    });
    static const std::string text = server.url("/");
    return text;
}

std::size_t ignoreBody(char*, std::size_t, std::size_t count, void*)
{
    return count;
}

// The same request as ours, to the byte.
void prepare(CURL* easy, bool isPost)
{
    static curl_slist* const headers = [] {
        curl_slist* list = nullptr;
        for (const char* line : {"Expect:", "Cache-Control: no-cache", "Pragma: no-cache"}) {
            list = curl_slist_append(list, line);
        }
        return list;
    }();
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(easy, CURLOPT_URL, url().c_str());
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &ignoreBody);
    if (isPost) curl_easy_setopt(easy, CURLOPT_POSTFIELDS, form);
}

using Easy = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Multi = std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)>;

Easy easyHandle(bool isPost)
{
    Easy easy(curl_easy_init(), &curl_easy_cleanup);
    prepare(easy.get(), isPost);
    return easy;
}

void runToTheEnd(CURLM* multi)
{
    for (int running = 1; running > 0;) {
        curl_multi_perform(multi, &running);
        if (running > 0) curl_multi_poll(multi, nullptr, 0, 1000, nullptr);
    }
}

void postByQt(QNetworkAccessManager& manager)
{
    QNetworkRequest request(QUrl(QString::fromStdString(url())));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/x-www-form-urlencoded");
    QEventLoop loop;
    const std::unique_ptr<QNetworkReply> reply(manager.post(request, QByteArray(form)));
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    Bench::keep(reply->readAll());
}

// Through one session, the connection kept alive.
void posts()
{
    const Easy easy = easyHandle(true);
    QNetworkAccessManager manager;
    Bench::compare("POST by a waiting caller",
                   {{"ours", [] { Bench::keep(Fennick::WebRequest::post(url(), form).get()); }},
                    {"bare curl handle reused", [&] { curl_easy_perform(easy.get()); }},
                    {"Qt", [&] { postByQt(manager); }}},
                   rounds);
    const Multi multi(curl_multi_init(), &curl_multi_cleanup);
    Bench::compare("POST with a callback",
                   {{"ours",
                     [] {
                         std::promise<void> done;
                         Fennick::WebRequest::post(url(), form, [&](const auto&, const auto&) { done.set_value(); });
                         done.get_future().wait();
                     }},
                    {"bare curl multi",
                     [&] {
                         curl_multi_add_handle(multi.get(), easy.get());
                         runToTheEnd(multi.get());
                         curl_multi_remove_handle(multi.get(), easy.get());
                     }}},
                   rounds);
}

void getOursParallel()
{
    std::atomic<int> left = parallel;
    std::promise<void> done;
    for (int i = 0; i < parallel; ++i) {
        Fennick::WebRequest::get(url(), [&](const auto&, const auto&) {
            if (--left == 0) done.set_value();
        });
    }
    done.get_future().wait();
}

void getBareParallel(CURLM* multi)
{
    std::vector<Easy> handles;
    for (int i = 0; i < parallel; ++i) {
        handles.push_back(easyHandle(false));
        curl_easy_setopt(handles.back().get(), CURLOPT_FRESH_CONNECT, 1L);
        curl_easy_setopt(handles.back().get(), CURLOPT_FORBID_REUSE, 1L);
        curl_multi_add_handle(multi, handles.back().get());
    }
    runToTheEnd(multi);
    for (const Easy& easy : handles) curl_multi_remove_handle(multi, easy.get());
}

// With nothing kept from one to the next.
void gets()
{
    Bench::compare("GET",
                   {{"ours", [] { Bench::keep(Fennick::WebRequest::get(url()).get()); }},
                    {"bare curl handle made new", [] { curl_easy_perform(easyHandle(false).get()); }}},
                   rounds);
    const Multi multi(curl_multi_init(), &curl_multi_cleanup);
    Bench::compare("100 GET at once",
                   {{"ours", getOursParallel}, {"bare curl multi", [&] { getBareParallel(multi.get()); }}}, rounds);
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    posts();
    gets();
}
