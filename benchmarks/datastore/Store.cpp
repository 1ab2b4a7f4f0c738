#include <array>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <unordered_map>

#include <boost/circular_buffer.hpp>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/WrappedIdentifier.h"
#include "benchmarks/datastore/Measure.h"

namespace Bench {

namespace {

using namespace Fennick;

std::string key(int at)
{
    return "sensor.reading." + std::to_string(at);
}

void fill(DataStore& store, int count)
{
    for (int at = 0; at < count; ++at) store.add(std::make_shared<NumberIdentifier>(key(at)));
}

// The plain way to share a map.
struct LockedMap {
    std::shared_mutex mutex;
    std::unordered_map<std::string, std::shared_ptr<Identifier>> map;

    std::shared_ptr<Identifier> find(const std::string& name)
    {
        const std::shared_lock lock(mutex);
        const auto found = map.find(name);
        return found == map.end() ? nullptr : found->second;
    }
};

// The plain way to keep a reading.
struct LockedReading {
    std::mutex mutex;
    boost::circular_buffer<double> history{60, 0.0};
    double min = 0;
    double max = 0;

    void set(double value)
    {
        const std::lock_guard lock(mutex);
        history.push_back(value);
        if (value < min) min = value;
        if (value > max) max = value;
    }
};

Contestant settingWithHistory(const char* name, std::int64_t size)
{
    const auto identifier = std::make_shared<NumberIdentifier>("key");
    identifier->setHistorySize(size);
    return {name, [identifier, number = 0.0]() mutable { identifier->set(number += 0.5); }};
}

}  // namespace

void lookups()
{
    DataStore store;
    LockedMap plain;
    fill(store, 16);
    for (int at = 0; at < 16; ++at) plain.map[key(at)] = store.identifierFor(key(at));
    const std::string wanted = key(11);
    store.data().set("alias", std::make_shared<WrappedIdentifier>("alias", "Alias", wanted));
    store.contains("alias");

    const Contestant one("one lookup", [&] { keep(store.identifierFor(wanted)); });
    compare("lookup among 16 keys", {one, {"shared_mutex and unordered_map", [&] { keep(plain.find(wanted)); }}});
    compare("lookup through an alias", {{"resolved", [&] { keep(store.identifierFor("alias")); }}, one});
}

void readings()
{
    LockedReading plain;
    double number = 0;
    compare("setting a number with a history of 60",
            {settingWithHistory("ours", 60), {"mutex and circular_buffer", [&] { plain.set(number += 0.5); }}});
    compare("setting a number with a history of 60000",
            {settingWithHistory("ours", 60'000), settingWithHistory("our history of 60", 60)});
}

void growth()
{
    for (const int count : {100, 300, 1000, 3000, 10000}) {
        DataStore store;
        DataStore target;
        fill(store, count);
        std::vector<std::string> keys;
        for (int at = 0; at < count; ++at) keys.push_back(key(at));
        const auto forEach = [&](const char* name, auto body) {
            return Contestant(name, [&keys, body] {
                for (const std::string& each : keys) body(each);
            });
        };
        const auto spent = medians({forEach("lookup", [&](const auto& each) { keep(store.valueFor(each)); }),
                                    forEach("set", [&](const auto& each) { store.set(1.5, each); }),
                                    {"merge",
                                     [&] {
                                         target.merge(store);
                                         target.contains("");
                                     }}},
                                   7);
        for (std::size_t i = 0; i < spent.size(); ++i) {
            point("store: cost of a key by keys", std::array{"lookup", "set", "merge"}[i], count, spent[i] / count);
        }
    }
}

}  // namespace Bench
