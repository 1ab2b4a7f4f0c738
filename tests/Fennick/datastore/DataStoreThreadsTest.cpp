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

std::string key(unsigned at)
{
    return "key " + std::to_string(at % 16);
}

// What each of the threads does over and over, in its own way at each step.
std::vector<std::function<void(DataStore&, unsigned)>> trades()
{
    return {
        [](DataStore& store, unsigned step) { store.set(static_cast<int>(step), key(step)); },
        [](DataStore& store, unsigned step) { store.increment(0.5, key(step)); },
        [](DataStore& store, unsigned step) { store.add(std::make_shared<NumberIdentifier>(key(step))); },
        [](DataStore& store, unsigned step) { step % 5 ? store.remove(key(step)) : store.removeAll(); },
        [](DataStore& store, unsigned step) {
            DataStore other;
            other.add(std::make_shared<StringIdentifier>("text", "Text", "t"));
            other.add(std::make_shared<WrappedIdentifier>("alias", "Alias", key(step)));
            other.add(std::make_shared<NumberIdentifier>(key(step)));
            store.merge(other);
        },
        [](DataStore& store, unsigned step) {
            store.setHistorySize(step % 100);
            store.setString("text", static_cast<long>(step), "text");
        },
        [](DataStore& store, unsigned step) {
            store.stringFor(key(step));
            store.stringFor("alias");
            store.historyAs<double>(key(step));
            store.minFor("text");
            for (const auto& [name, identifier] : store.data()) EXPECT_EQ(identifier->identifier(), name);
        },
        [](DataStore& store, unsigned step) {
            if (const auto number = store.identifierAs<NumberIdentifier>(key(step))) {
                number->set(std::optional<float>());
                const auto highest = number->max();  // the smallest is stored first
                EXPECT_TRUE(!highest || number->min());
            }
        },
    };
}

}  // namespace

TEST(DataStoreOnManyThreads, StaysWholeUnderEveryTradeAtOnce)
{
    DataStore store;
    const auto end = std::chrono::steady_clock::now() + 2s * Tests::atLength("turns of 2 s", 1);
    {
        std::vector<std::jthread> threads;
        for (const auto& trade : trades()) {
            threads.emplace_back([&store, end, trade] {
                for (unsigned step = 0; std::chrono::steady_clock::now() < end; ++step) trade(store, step);
            });
        }
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
