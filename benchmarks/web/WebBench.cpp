// Requests over the loopback interface, kept alive and fresh, ours beside the
// bare library and Qt; the server is ours, in this process.
#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <algorithm>
#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include "Fennick/web/WebRequest.h"
#include "tests/support/http/HttpServer.h"

namespace {

constexpr char form[] = "name=value&other=value";
constexpr int parallel = 100;

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

// POST through one session, the caller waiting.
void postOurs(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(Fennick::WebRequest::post(url(), form).get());
}
void postBareCurl(benchmark::State& state)
{
    CURL* easy = curl_easy_init();
    prepare(easy, true);
    for (auto _ : state) curl_easy_perform(easy);
    curl_easy_cleanup(easy);
}
void postQt(benchmark::State& state)
{
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(QString::fromStdString(url())));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/x-www-form-urlencoded");
    for (auto _ : state) {
        QEventLoop loop;
        const std::unique_ptr<QNetworkReply> reply(manager.post(request, QByteArray(form)));
        QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        benchmark::DoNotOptimize(reply->readAll());
    }
}

// The same with a callback.
void postOursWithCallback(benchmark::State& state)
{
    for (auto _ : state) {
        std::promise<void> done;
        Fennick::WebRequest::post(url(), form, [&](const auto&, const auto&) { done.set_value(); });
        done.get_future().wait();
    }
}
void postBareMulti(benchmark::State& state)
{
    CURLM* multi = curl_multi_init();
    CURL* easy = curl_easy_init();
    prepare(easy, true);
    for (auto _ : state) {
        curl_multi_add_handle(multi, easy);
        for (int running = 1; running > 0;) {
            curl_multi_perform(multi, &running);
            if (running > 0) curl_multi_poll(multi, nullptr, 0, 1000, nullptr);
        }
        curl_multi_remove_handle(multi, easy);
    }
    curl_easy_cleanup(easy);
    curl_multi_cleanup(multi);
}

// GET with nothing kept from one to the next.
void getOurs(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(Fennick::WebRequest::get(url()).get());
}
void getFreshCurl(benchmark::State& state)
{
    for (auto _ : state) {
        CURL* easy = curl_easy_init();
        prepare(easy, false);
        curl_easy_perform(easy);
        curl_easy_cleanup(easy);
    }
}

// Many at once.
void getOursParallel(benchmark::State& state)
{
    for (auto _ : state) {
        std::atomic<int> left = parallel;
        std::promise<void> done;
        for (int i = 0; i < parallel; ++i) {
            Fennick::WebRequest::get(url(), [&](const auto&, const auto&) {
                if (--left == 0) done.set_value();
            });
        }
        done.get_future().wait();
    }
}
void getBareMultiParallel(benchmark::State& state)
{
    CURLM* multi = curl_multi_init();
    for (auto _ : state) {
        std::vector<CURL*> handles(parallel);
        for (CURL*& easy : handles) {
            easy = curl_easy_init();
            prepare(easy, false);
            curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
            curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
            curl_multi_add_handle(multi, easy);
        }
        for (int running = 1; running > 0;) {
            curl_multi_perform(multi, &running);
            if (running > 0) curl_multi_poll(multi, nullptr, 0, 1000, nullptr);
        }
        for (CURL* easy : handles) {
            curl_multi_remove_handle(multi, easy);
            curl_easy_cleanup(easy);
        }
    }
    curl_multi_cleanup(multi);
}

// The undisturbed time counts: on a busy machine the others measure the neighbours.
double least(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

void settle(benchmark::internal::Benchmark* one)
{
    one->Unit(benchmark::kMicrosecond)
        ->Repetitions(60)
        ->MinTime(0.01)
        ->ReportAggregatesOnly()
        ->ComputeStatistics("least", least)
        ->UseRealTime();
}

BENCHMARK(postOurs)->Apply(settle);
BENCHMARK(postBareCurl)->Apply(settle);
BENCHMARK(postQt)->Apply(settle);
BENCHMARK(postOursWithCallback)->Apply(settle);
BENCHMARK(postBareMulti)->Apply(settle);
BENCHMARK(getOurs)->Apply(settle);
BENCHMARK(getFreshCurl)->Apply(settle);
BENCHMARK(getOursParallel)->Apply(settle);
BENCHMARK(getBareMultiParallel)->Apply(settle);

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
