// The hottest operations, each repeated a fixed number of times on the same
// input. Under callgrind the instructions of each loop are dumped under the
// operation's name; without it the program only shows that they all run.
// Each operation runs once ahead, so that what is made on first use does not count.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <valgrind/callgrind.h>

#include "Fennick/Data.h"
#include "Fennick/Date.h"
#include "Fennick/DateUtilities.h"
#include "Fennick/RamerDouglasPeucker.h"
#include "Fennick/Version.h"
#include "Fennick/coding/AnyCodable.h"
#include "Fennick/coding/AnyDecodable.h"
#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/NumberTexts.h"
#include "Lorrel/apps/queries/DistributedNotifications.h"
#include "platform/coding/JSONDecoder.h"
#include "platform/coding/JSONEncoder.h"
#include "platform/runtime/Queue.h"

namespace {

template <typename T>
void keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

template <typename Body>
void count(const char* operation, long times, Body body)
{
    body();
    CALLGRIND_TOGGLE_COLLECT;
    for (long i = 0; i < times; ++i) body();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(operation);
    std::printf("%s,%ld\n", operation, times);
}

void store()
{
    Fennick::DataStore store;
    std::vector<std::string> keys;
    for (int at = 0; at < 16; ++at) {
        keys.push_back("sensor.reading." + std::to_string(at));
        const auto identifier = std::make_shared<Fennick::NumberIdentifier>(keys.back());
        identifier->setHistorySize(60);
        store.add(identifier);
    }
    std::size_t next = 0;
    double number = 0;
    count("store: lookup", 10'000, [&] { keep(store.valueFor(keys[++next % 16])); });
    count("store: set", 10'000, [&] { store.set(number += 0.5, keys[++next % 16]); });
}

void queue()
{
    const auto queue = Platform::Queue::create("budget", Platform::Queue::Kind::concurrent);
    int value = 0;
    count("queue: read", 100'000, [&] { keep(queue->sync([&] { return value; })); });
}

void texts()
{
    double number = 1234.567;
    std::uint64_t bytes = 1'234'567;
    count("fixedDecimalsText", 10'000, [&] { keep(Fennick::fixedDecimalsText(2, number += 0.31)); });
    count("byteCountText", 10'000, [&] { keep(Fennick::byteCountText(bytes += 98'765)); });
    count("clockText", 10'000, [] { keep(Fennick::DateUtilities::clockText(90'061)); });
    double at = 1'704'110'400;
    count("dateText", 1'000, [&] { keep(Fennick::dateText(Platform::Date(at += 1), "yyyy-MM-dd HH:mm:ss")); });
    const Fennick::Version older("128.0.6613.119");
    const Fennick::Version newer("128.0.6613.12");
    count("version comparison", 100'000, [&] { keep(older < newer); });
}

void polyline()
{
    std::vector<Fennick::Point> points;
    for (int x = 0; x < 10'000; ++x) points.push_back({static_cast<double>(x), 20 * std::sin(x / 50.0) + x * 7 % 11});
    count("polyline of 10000 points", 10, [&] { keep(Fennick::RamerDouglasPeucker::simplify(points, 3).size()); });
}

void coding()
{
    std::string json = "[";
    for (int i = 0; i < 200; ++i) {
        json += (i ? "," : "") + std::string(R"({"id":)") + std::to_string(i * 7919) + R"(,"name":"sensor-)" +
                std::to_string(i) + R"(","on":true,"place":{"x":)" + std::to_string(i) +
                R"(.25,"y":-0.5},"history":[1,2.5,3],)" + R"("text":"a \"quoted\" word"})";
    }
    json += "]";
    const auto any = Platform::JSONDecoder().decode<Fennick::AnyCodable>(json);
    count("JSON decoding of 200 records", 20,
          [&] { keep(Platform::JSONDecoder().decode<Fennick::AnyDecodable>(json)); });
    count("JSON encoding of 200 records", 20, [&] { keep(Platform::JSONEncoder().encode(any)); });
    const Platform::Data bytes(json.begin(), json.end());
    count("base64URLString of 200 records", 20, [&] { keep(Fennick::base64URLString(bytes)); });
}

// Words of a language without meaning, a megabyte of them.
Platform::Data prose()
{
    Platform::Data bytes;
    std::uint32_t random = 1;
    const auto next = [&] { return (random = random * 1'664'525 + 1'013'904'223) >> 16; };
    while (bytes.size() < 1'000'000) {
        const std::uint32_t word = next() % 2'000;
        for (std::uint32_t letter = 0; letter < 2 + word % 8; ++letter)
            bytes.push_back(static_cast<std::uint8_t>('a' + (word * 7 + letter * letter * 5) % 26));
        bytes.push_back(' ');
    }
    return bytes;
}

void packing()
{
    const Platform::Data bytes = prose();
    const Platform::Data packed = *Fennick::compressed(bytes);
    count("md5 of 1 MB", 5, [&] { keep(Fennick::md5(bytes)); });
    count("inflate to 1 MB", 5, [&] { keep(Fennick::decompressed(packed)->size()); });
}

// To a session bus that nobody listens on.
void notification()
{
    count("notification: encode and send", 1'000,
          [] { Lorrel::DistributedNotifications::post("org.example.reading", "sensor-7"); });
}

}  // namespace

int main()
{
    store();
    queue();
    texts();
    polyline();
    coding();
    packing();
    notification();
}
