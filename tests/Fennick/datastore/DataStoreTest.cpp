#include <limits>

#include <gtest/gtest.h>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/StringIdentifier.h"
#include "Fennick/datastore/WrappedIdentifier.h"

using namespace Fennick;
using Platform::CGFloat;
using Platform::Number;

namespace {

class DataStoreWithReadings : public testing::Test {
protected:
    DataStoreWithReadings()
    {
        store.add(cpu);
        store.add(std::make_shared<StringIdentifier>("host", "Host", "box"));
        store.add(std::make_shared<WrappedIdentifier>("alias", "Alias", "cpu"));
        store.add(std::make_shared<WrappedIdentifier>("second", "Alias of an alias", "alias"));
        store.add(std::make_shared<WrappedIdentifier>("dangling", "Alias of nothing", "missing"));
    }

    std::shared_ptr<NumberIdentifier> cpu = std::make_shared<NumberIdentifier>("cpu");
    DataStore implementation;
    IDataStore& store = implementation;
};

// Calls the check with a value of each type.
template <typename... Types>
void forEach(const auto& check)
{
    (check(Types(3)), ...);
}

}  // namespace

TEST_F(DataStoreWithReadings, AnswersByKeyAndThroughAnAlias)
{
    store.set(42, "cpu");
    for (const char* key : {"cpu", "alias"}) {
        for (const auto& found : {store.valueFor(key), store.minFor(key), store.maxFor(key)}) EXPECT_EQ(found, 42);
        EXPECT_EQ(store.stringFor(key), "42");
        EXPECT_EQ(store.historyFor(key)->size(), 60U);
        EXPECT_EQ(store.identifierAs<MaxValueProvider>(key), cpu);
        EXPECT_TRUE(store.hasHistory(key) && store.contains(key));
    }
    EXPECT_EQ(store.identifierAs<StringIdentifier>("cpu"), nullptr);
}

TEST_F(DataStoreWithReadings, AnswersEmptilyForKeysThatLeadNowhere)
{
    for (const char* key : {"missing", "CPU", "dangling", "second"}) {
        EXPECT_EQ(store.valueFor(key), std::nullopt) << key;
        EXPECT_EQ(store.stringFor(key), "-");
        EXPECT_FALSE(store.hasHistory(key) || store.minFor(key) || store.maxFor(key) || store.historyFor(key));
    }
    EXPECT_TRUE(store.contains("dangling"));
    EXPECT_FALSE(store.contains("missing"));
}

TEST_F(DataStoreWithReadings, WritesOnlyWhatStandsUnderTheKeyItself)
{
    store.set(3, "cpu");
    store.set(7, "alias");
    store.increment(5, "alias");
    store.setString("x", 1.5, "cpu");
    store.setString("x", "alias");
    store.set(9, "host");
    store.set(9, "missing");
    EXPECT_EQ(store.valueFor("cpu"), Number(3));
    EXPECT_EQ(store.stringFor("host"), "box");
    EXPECT_FALSE(store.contains("missing"));

    store.setString("ok", 2.5, "host");
    store.setString("ok", 1.5, "host");
    EXPECT_EQ(store.stringFor("host"), "ok");
    store.increment(1, "host");
    EXPECT_EQ(store.valueFor("host"), Number(1.5));
    EXPECT_EQ(store.maxFor("host"), Number(2.5));
    store.setString(std::nullopt, "host");
    EXPECT_EQ(store.stringFor("host"), "-");
}

TEST_F(DataStoreWithReadings, WritesAndReadsInEachType)
{
    forEach<long, short, int, long long, unsigned long, unsigned short, unsigned int, unsigned long long, float,
            double>([&]<typename T>(T three) {
        store.set(three, "cpu");
        EXPECT_EQ(store.valueFor("cpu")->kind(), Number(three).kind());
        store.increment(T(5), "cpu");
        EXPECT_EQ(store.valueAs<T>("cpu"), T(8));
        if constexpr (std::integral<T>) {
            store.set(std::numeric_limits<T>::max(), "cpu");
            store.increment(T(1), "cpu");
            EXPECT_EQ(store.valueAs<T>("cpu"), std::numeric_limits<T>::max());
        }
        store.set(std::optional<T>(), "cpu");
        store.increment(T(5), "cpu");
        EXPECT_EQ(store.valueFor("cpu"), std::nullopt);
    });
    store.set(300.1, "cpu");
    forEach<signed char, short, int, long long, unsigned char, unsigned short, unsigned int, unsigned long long, float,
            double>([&]<typename T>(T) {
        EXPECT_EQ(store.valueAs<T>("cpu"), Number(300.1).as<T>());
        EXPECT_EQ(store.historyAs<T>("cpu").back(), Number(300.1).as<T>());
        EXPECT_TRUE(store.historyAs<T>("missing").empty());
    });
    EXPECT_EQ(store.historyAs<CGFloat>("cpu").back(), CGFloat(300.1F));
}

TEST_F(DataStoreWithReadings, GivesEveryIdentifierItsHistoryLengthMergesAndRemoves)
{
    store.set(5, "cpu");
    store.setHistorySize(10);
    EXPECT_EQ(store.historyAs<int>("cpu"), std::vector<int>(10, 0));
    EXPECT_EQ(store.historyAs<int>("host").size(), 10U);
    store.add(std::make_shared<NumberIdentifier>("late"));
    EXPECT_EQ(store.historyAs<int>("late").size(), 10U);

    DataStore other;
    const auto replacement = std::make_shared<NumberIdentifier>("cpu");
    other.setHistorySize(3);
    other.add(replacement);
    other.add(std::make_shared<NumberIdentifier>("new"));
    store.merge(other);
    store.merge(store);
    EXPECT_EQ(store.identifierFor("cpu"), replacement);
    EXPECT_EQ(store.historyFor("new")->size(), 3U);
    EXPECT_EQ(store.data().count(), 7U);

    store.add(nullptr);
    store.data().set("null", std::shared_ptr<Identifier>());
    EXPECT_EQ(store.stringFor("null"), "-");
    store.setHistorySize(4);
    store.remove("null");
    store.remove(*replacement);
    EXPECT_FALSE(store.contains("cpu"));
    store.removeAll();
    EXPECT_FALSE(store.contains("new") || store.contains("host"));
}
