#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/StringIdentifier.h"
#include "Fennick/datastore/WrappedIdentifier.h"
#include "tests/support/Torture.h"

using namespace Fennick;
using namespace std::chrono_literals;

namespace {

// What each of the threads does over and over, with the key of each step.
const std::function<void(DataStore&, const std::string& key, unsigned step)> trades[] = {
    [](DataStore& store, const std::string& key, unsigned step) { store.set(static_cast<int>(step), key); },
    [](DataStore& store, const std::string& key, unsigned) { store.increment(0.5, key); },
    [](DataStore& store, const std::string& key, unsigned) { store.add(std::make_shared<NumberIdentifier>(key)); },
    [](DataStore& store, const std::string& key, unsigned step) { step % 5 ? store.remove(key) : store.removeAll(); },
    [](DataStore& store, const std::string& key, unsigned) {
        DataStore other;
        other.add(std::make_shared<StringIdentifier>("text", "Text", "t"));
        other.add(std::make_shared<WrappedIdentifier>("alias", "Alias", key));
        other.add(std::make_shared<NumberIdentifier>(key));
        store.merge(other);
    },
    [](DataStore& store, const std::string&, unsigned step) {
        store.setHistorySize(step % 100);
        store.setString("text", static_cast<long>(step), "text");
    },
    [](DataStore& store, const std::string& key, unsigned) {
        store.stringFor(key);
        store.stringFor("alias");
        store.historyAs<double>(key);
        store.minFor("text");
        for (const auto& [name, identifier] : store.data()) EXPECT_EQ(identifier->identifier(), name);
    },
    [](DataStore& store, const std::string& key, unsigned) {
        const auto number = store.identifierAs<NumberIdentifier>(key);
        if (!number) return;
        number->set(std::optional<float>());
        const auto highest = number->max();  // the smallest is stored first
        EXPECT_TRUE(!highest || number->min());
    },
};

}  // namespace

TEST(DataStoreOnManyThreads, StaysWholeUnderEveryTradeAtOnce)
{
    DataStore store;
    const auto end = std::chrono::steady_clock::now() + 2s * Tests::atLength("turns of 2 s", 1);
    std::vector<std::jthread> threads;
    for (const auto& trade : trades) {
        threads.emplace_back([&] {
            for (unsigned step = 0; std::chrono::steady_clock::now() < end; ++step) {
                trade(store, "key " + std::to_string(step % 16), step);
            }
        });
    }
}

// Readers see a number with its own kind, never half of two changes.
TEST(AtomicNumber, IsReadWhole)
{
    AtomicNumber number;
    const auto write = [&](const std::stop_token& isOver) {
        while (!isOver.stop_requested()) {
            number.store(Platform::Number(1000.5));
            number.store(Platform::Number(7));
            number.clear();
        }
    };
    const std::jthread first(write);
    const std::jthread second(write);
    for (int count = 0; count < 100'000; ++count) {
        const auto read = number.load();
        ASSERT_TRUE(!read || *read == Platform::Number(read->isFloatingPoint() ? 1000.5 : 7)) << read->doubleValue();
    }
}
