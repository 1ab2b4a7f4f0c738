// Decoding a 4 MB document to a tree of any values and writing it again, ours
// beside the peers' trees and writers.
#include <QJsonDocument>
#include <random>
#include <string>

#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <simdjson.h>

#include "Fennick/coding/AnyCodable.h"
#include "Fennick/coding/AnyDecodable.h"
#include "benchmarks/Interleaved.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"

namespace {

constexpr int rounds = 21;

// Records as a catalogue or a log of readings has them: short and long texts,
// some with escapes, whole numbers, measured values, flags, nested lists.
std::string makeDocument(std::size_t size)
{
    std::mt19937 random(1);
    std::string json = "[";
    for (int i = 0; json.size() < size; ++i) {
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

void decoding(const std::string& document)
{
    const simdjson::padded_string padded(document);
    const auto bytes = QByteArray::fromStdString(document);
    Bench::compare("JSON decoding",
                   {{"ours", [&] { Bench::keep(Platform::JSONDecoder().decode<Fennick::AnyDecodable>(document)); }},
                    {"simdjson's tree",
                     [&] {
                         simdjson::dom::parser parser;
                         Bench::keep(parser.parse(padded).error());
                     }},
                    {"RapidJSON",
                     [&] {
                         rapidjson::Document tree;
                         tree.Parse(document.c_str());
                         Bench::keep(tree.IsArray());
                     }},
                    {"nlohmann", [&] { Bench::keep(nlohmann::json::parse(document)); }},
                    {"Qt", [&] { Bench::keep(QJsonDocument::fromJson(bytes)); }}},
                   rounds);
}

void encoding(const std::string& document)
{
    const auto any = Platform::JSONDecoder().decode<Fennick::AnyCodable>(document);
    rapidjson::Document rapid;
    rapid.Parse(document.c_str());
    const auto nlohmann = nlohmann::json::parse(document);
    const auto qt = QJsonDocument::fromJson(QByteArray::fromStdString(document));
    Bench::compare("JSON encoding",
                   {{"ours", [&] { Bench::keep(Platform::JSONEncoder().encode(any)); }},
                    {"RapidJSON",
                     [&] {
                         rapidjson::StringBuffer buffer;
                         rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
                         rapid.Accept(writer);
                         Bench::keep(buffer.GetString());
                     }},
                    {"nlohmann", [&] { Bench::keep(nlohmann.dump()); }},
                    {"Qt", [&] { Bench::keep(qt.toJson(QJsonDocument::Compact)); }}},
                   rounds);
}

void growth()
{
    for (const std::size_t size : {1'000, 10'000, 100'000, 1'000'000, 10'000'000}) {
        const std::string json = makeDocument(size);
        const auto any = Platform::JSONDecoder().decode<Fennick::AnyCodable>(json);
        Bench::curve("JSON by bytes", static_cast<double>(json.size()),
                     {{"decoding", [&] { Bench::keep(Platform::JSONDecoder().decode<Fennick::AnyDecodable>(json)); }},
                      {"decoding: nlohmann", [&] { Bench::keep(nlohmann::json::parse(json)); }},
                      {"encoding", [&] { Bench::keep(Platform::JSONEncoder().encode(any)); }},
                      {"encoding: nlohmann", [&, tree = nlohmann::json::parse(json)] { Bench::keep(tree.dump()); }}});
    }
}

}  // namespace

int main()
{
    const std::string document = makeDocument(4'000'000);
    decoding(document);
    encoding(document);
    growth();
}
