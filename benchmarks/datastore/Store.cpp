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

double settingWithHistory(std::int64_t size)
{
    NumberIdentifier identifier("key");
    identifier.setHistorySize(size);
    double number = 0;
    return nanoseconds([&] { identifier.set(number += 0.5); }, 100'000);
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

    const auto direct = nanoseconds([&] { benchmark::DoNotOptimize(store.identifierFor(wanted)); }, 100'000);
    const auto resolved = nanoseconds([&] { benchmark::DoNotOptimize(store.identifierFor("alias")); }, 100'000);
    const auto peer = nanoseconds([&] { benchmark::DoNotOptimize(plain.find(wanted)); }, 100'000);
    row("lookup among 16 keys", "shared_mutex and unordered_map", direct, peer, "1.5");
    row("lookup through an alias", "one lookup", resolved, direct, "0.5");
}

void readings()
{
    LockedReading plain;
    double number = 0;
    const double peer = nanoseconds([&] { plain.set(number += 0.5); }, 100'000);
    row("setting a number, history of 60", "mutex and circular_buffer", settingWithHistory(60), peer, "0.83");
    row("setting a number, history of 60,000", "our history of 60", settingWithHistory(60'000), settingWithHistory(60),
        "1");
}

void growth()
{
    std::printf("\n%10s %16s %16s %16s\n", "keys", "lookup ns/key", "set ns/key", "merge ns/key");
    for (const int count : {100, 300, 1000, 3000, 10000}) {
        DataStore store;
        DataStore target;
        fill(store, count);
        std::vector<std::string> keys;
        for (int at = 0; at < count; ++at) keys.push_back(key(at));
        const auto each = [&](const auto& body) {
            const auto all = [&] {
                for (const std::string& name : keys) body(name);
            };
            return nanoseconds(all, 100'000 / count, 7) / count;
        };
        const double lookup = each([&](const auto& name) { benchmark::DoNotOptimize(store.valueFor(name)); });
        const double setting = each([&](const auto& name) { store.set(1.5, name); });
        const auto merging = [&] {
            target.merge(store);
            target.contains("");
        };
        const double merge = nanoseconds(merging, std::max(1, 20'000 / count), 7) / count;
        std::printf("%10d %16.1f %16.1f %16.1f\n", count, lookup, setting, merge);
    }
}

}  // namespace Bench
