#pragma once

#include <atomic>
#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/IDataStore.h"
#include "Fennick/datastore/NumberIdentifier.h"

namespace Fennick {

class DataStore;

namespace Slots {

using StoreWritingAnswers =
    StoreWriteChain<StoreIncrementAnswer, StoreWriteChain<StoreSetAnswer, SlotsOf<DataStore, IDataStore>>>;
using StoreAnswers = StoreValueChain<StoreValueAnswer, StoreHistoryChain<StoreHistoryAnswer, StoreWritingAnswers>>;

}  // namespace Slots

// The keyed home of an application's identifiers. Made empty, with a history
// length of 60. Identifiers are shared: the store, who made them and who read
// them hold the same objects. Thread: any.
class DataStore : public Slots::StoreAnswers {
public:
    IdentifierMap& data() override { return data_; }
    std::int64_t historySize() const override { return historySize_; }
    void setHistorySize(std::int64_t size) override;

    std::optional<Platform::Number> valueFor(std::string_view key) const override;
    std::string stringFor(std::string_view key) const override;
    std::shared_ptr<Identifier> identifierFor(std::string_view key) const override;

    void removeAll() override;
    bool contains(std::string_view key) const override;
    bool hasHistory(std::string_view key) const override;
    void add(const std::shared_ptr<Identifier>& identifier) override;
    void remove(std::string_view key) override;
    void remove(const Identifier& identifier) override;
    void merge(IDataStore& store) override;

    void setString(std::optional<std::string> text, std::string_view key) override;
    void setString(std::optional<std::string> text, const Platform::Number& number, std::string_view key) override;

    std::optional<std::vector<Platform::Number>> historyFor(std::string_view key) const override;
    std::optional<Platform::Number> minFor(std::string_view key) const override;
    std::optional<Platform::Number> maxFor(std::string_view key) const override;

private:
    template <typename, typename>
    friend class Slots::StoreSetAnswer;
    template <typename, typename>
    friend class Slots::StoreIncrementAnswer;
    template <typename, typename>
    friend class Slots::StoreHistoryAnswer;
    template <typename, typename>
    friend class Slots::StoreValueAnswer;

    // What stands under the key itself; null when nothing does.
    std::shared_ptr<Identifier> entry(std::string_view key) const;

    template <typename T>
    void setNumber(const T& value, std::string_view key)
    {
        const std::shared_ptr<Identifier> found = entry(key);
        if (found && found->kind() == Identifier::Kind::number) static_cast<NumberIdentifier&>(*found).set(value);
    }

    template <typename T>
    void addToNumber(T delta, std::string_view key)
    {
        const std::optional<Platform::Number> current = valueFor(key);
        if (!current) return;
        T sum = current->as<T>();
        if constexpr (std::floating_point<T>) {
            sum += delta;
        } else if (__builtin_add_overflow(sum, delta, &sum)) {
            return;
        }
        setNumber(sum, key);
    }

    template <typename T>
    std::vector<T> numbersOfHistory(std::string_view key) const
    {
        const auto history = historyFor(key);
        if (!history) return {};
        std::vector<T> numbers;
        numbers.reserve(history->size());
        for (const Platform::Number& number : *history) numbers.push_back(number.as<T>());
        return numbers;
    }

    template <typename T>
    T numberAs(std::string_view key) const
    {
        const std::optional<Platform::Number> number = valueFor(key);
        return number ? number->as<T>() : T{};
    }

    IdentifierMap data_;
    std::atomic<std::int64_t> historySize_ = defaultHistorySize;
};

}  // namespace Fennick
