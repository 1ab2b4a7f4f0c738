#include <atomic>
#include <random>
#include <unordered_map>

#include <gtest/gtest.h>

#include "Fennick/datastore/RKDictionary.h"
#include "platform/runtime/Semaphore.h"
#include "platform/runtime/Shared.h"
#include "tests/support/Eventually.h"
#include "tests/support/Torture.h"

using namespace Fennick;

namespace {

using Numbers = RKDictionary<std::string, int>;

}  // namespace

TEST(ThreadedObject, KeepsItsValueForWritesThatArePendingWhenItEnds)
{
    Platform::Semaphore done(0);
    auto object = std::make_unique<ThreadedObject<std::string>>("", ThreadingType::concurrent);
    std::string last;
    for (int at = 0; at < 100; ++at) object->write([](std::string& text) { text += 'x'; });
    object->write([&](std::string& text) {
        last = text;
        done.signal();
    });
    object.reset();
    ASSERT_TRUE(done.waitFor(std::chrono::seconds(10)));
    EXPECT_EQ(last, std::string(100, 'x'));
}

// A value's end may use the container that held it.
TEST(ThreadedObject, LetsReplacedValuesEndOutsideItsQueue)
{
    struct Reader {
        Numbers& numbers;
        std::atomic<int>& count;
        ~Reader() { count += static_cast<int>(numbers.size()); }
    };
    Numbers numbers(Numbers::Map{{"a", 1}});
    std::atomic<int> count = 0;
    RKDictionary<int, std::shared_ptr<Reader>> readers;
    for (const int key : {1, 2, 3}) readers.set(key, std::shared_ptr<Reader>(new Reader{numbers, count}));
    readers.set(1, nullptr);
    readers.set(2, std::nullopt);
    readers.removeAll();
    EXPECT_EQ(readers.count(), 0U);
    EXPECT_TRUE(Tests::eventually([&] { return count == 3; }));
}

TEST(Dictionary, ReadsWhatItsThreadWrote)
{
    for (const auto type : {ThreadingType::serial, ThreadingType::concurrent}) {
        Numbers numbers(Numbers::Map{{"a", 1}, {"b", 2}}, type);
        numbers.set("c", 3);
        EXPECT_EQ(numbers["c"], 3);
        numbers.set("a", std::nullopt);
        EXPECT_EQ(numbers["a"], std::nullopt);
        numbers.modify("b", [](std::optional<int>& value) { *value += 40; });
        numbers.modify("d", [](std::optional<int>& value) { value = value.value_or(0) + 4; });
        EXPECT_EQ(numbers.values(), (std::vector{42, 3, 4}));
        numbers.removeAll();
        EXPECT_EQ(numbers.startIndex(), numbers.endIndex());
    }
}

TEST(Dictionary, IteratesInSteadyPlacesWhileItChanges)
{
    Numbers numbers(Numbers::Map{{"a", 1}, {"b", 2}});
    std::string walked;
    for (const auto& [key, value] : numbers) {
        walked += key;
        if (key != "a") continue;
        numbers.set("a", std::nullopt);
        for (int at = 0; at < 100; ++at) numbers.set("gone", at % 2 ? std::nullopt : std::optional(at));
        numbers.set("z", 26);
    }
    EXPECT_EQ(walked, "abz");
    auto index = numbers.startIndex();
    EXPECT_EQ(numbers[index]->key, "b");
    numbers.set("b", std::nullopt);
    EXPECT_FALSE(numbers[index]);
    index = numbers.index(index);
    EXPECT_EQ(numbers[index]->value, 26);
    EXPECT_EQ(numbers.index(index), numbers.endIndex());
}

TEST(KeyedTable, AnswersLikeTheLibrarysMapThroughRandomChanges)
{
    std::mt19937 random(Tests::seedOf(5));
    KeyedTable<std::string, int> table;
    std::unordered_map<std::string, int> model;
    for (long step = Tests::atLength("changes", 50'000); step > 0; --step) {
        const std::string key(random() % 12, static_cast<char>('a' + random() % 4));
        const int value = static_cast<int>(random() % 1000);
        const bool removes = random() % 3 == 0;
        const auto before = model.find(key);
        const std::optional<int> expected = before == model.end() ? std::nullopt : std::optional(before->second);
        ASSERT_EQ(table.replace(key, removes ? std::nullopt : std::optional(value)), expected);
        model[key] = value;
        if (removes) model.erase(key);
        ASSERT_EQ(table.size(), model.size());
    }
    table.forEach([&](const auto& entry) { EXPECT_EQ(model.at(entry.key), entry.value); });
    for (const auto& [key, value] : model) EXPECT_EQ(*table.find(std::string_view(key)), value);
}
