// Decoding a 4 MB document to a tree of any values and writing it again, ours
// beside the peers' trees and writers.
#include <QJsonDocument>
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <simdjson.h>

#include "Fennick/coding/AnyCodable.h"
#include "Fennick/coding/AnyDecodable.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"

namespace {

// Records as a catalogue or a log of readings has them: short and long texts,
// some with escapes, whole numbers, measured values, flags, nested lists.
std::string makeDocument()
{
    std::mt19937 random(1);
    std::string json = "[";
    for (int i = 0; json.size() < 4'000'000; ++i) {
        if (i > 0) json += ',';
        json += R"({"id":)" + std::to_string(random());
        json += R"(,"name":"sensor-)" + std::to_string(i) + '"';
        json += R"(,"description":"Temperature of the \"upper\" board, row )" + std::to_string(i % 97) + R"(")";
        json += R"(,"enabled":)" + std::string(i % 3 == 0 ? "false" : "true");
        json += R"(,"place":{"x":)" + std::to_string(random() % 100000 / 100.0) + R"(,"y":-0.)" +
                std::to_string(100000 + random() % 900000) + R"(,"floor":)" + std::to_string(i % 12) + '}';
        json += R"(,"history":[)";
        for (int k = 0; k < 8; ++k)
            json += (k > 0 ? "," : "") + std::to_string(random() % 1000) + '.' + std::to_string(random() % 9 + 1);
        json += R"(],"tags":["board","temp","§)" + std::to_string(i % 7) + R"("],"note":null})";
    }
    return json + "]";
}

const std::string& document()
{
    static const std::string json = makeDocument();
    return json;
}

void count(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(document().size()));
}

void decodeOurs(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(Platform::JSONDecoder().decode<Fennick::AnyDecodable>(document()));
    count(state);
}
void decodeSimdjsonTree(benchmark::State& state)
{
    const simdjson::padded_string padded(document());
    for (auto _ : state) {
        simdjson::dom::parser parser;
        benchmark::DoNotOptimize(parser.parse(padded).error());
    }
    count(state);
}
void decodeRapidJson(benchmark::State& state)
{
    for (auto _ : state) {
        rapidjson::Document tree;
        tree.Parse(document().c_str());
        benchmark::DoNotOptimize(tree.IsArray());
    }
    count(state);
}
void decodeNlohmann(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(document()));
    count(state);
}
void decodeQt(benchmark::State& state)
{
    const auto bytes = QByteArray::fromStdString(document());
    for (auto _ : state) benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes));
    count(state);
}

void encodeOurs(benchmark::State& state)
{
    const auto any = Platform::JSONDecoder().decode<Fennick::AnyCodable>(document());
    for (auto _ : state) benchmark::DoNotOptimize(Platform::JSONEncoder().encode(any));
    count(state);
}
void encodeRapidJson(benchmark::State& state)
{
    rapidjson::Document tree;
    tree.Parse(document().c_str());
    for (auto _ : state) {
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        tree.Accept(writer);
        benchmark::DoNotOptimize(buffer.GetString());
    }
    count(state);
}
void encodeNlohmann(benchmark::State& state)
{
    const auto tree = nlohmann::json::parse(document());
    for (auto _ : state) benchmark::DoNotOptimize(tree.dump());
    count(state);
}
void encodeQt(benchmark::State& state)
{
    const auto tree = QJsonDocument::fromJson(QByteArray::fromStdString(document()));
    for (auto _ : state) benchmark::DoNotOptimize(tree.toJson(QJsonDocument::Compact));
    count(state);
}

// The undisturbed time counts: on a busy machine the others measure the neighbours.
double least(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

void settle(benchmark::internal::Benchmark* one)
{
    one->Unit(benchmark::kMillisecond)
        ->Repetitions(60)
        ->MinTime(0.01)
        ->ReportAggregatesOnly()
        ->ComputeStatistics("least", least);
}

BENCHMARK(decodeOurs)->Apply(settle);
BENCHMARK(decodeSimdjsonTree)->Apply(settle);
BENCHMARK(decodeRapidJson)->Apply(settle);
BENCHMARK(decodeNlohmann)->Apply(settle);
BENCHMARK(decodeQt)->Apply(settle);
BENCHMARK(encodeOurs)->Apply(settle);
BENCHMARK(encodeRapidJson)->Apply(settle);
BENCHMARK(encodeNlohmann)->Apply(settle);
BENCHMARK(encodeQt)->Apply(settle);

}  // namespace

BENCHMARK_MAIN();
