#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/IDataProvider.h"
#include "Fennick/datastore/NumberIdentifier.h"

namespace Pellora {

using NumberReading = std::shared_ptr<Fennick::NumberIdentifier>;

// What the full height of a reading's graph stands for: a number that the
// readings hardly pass, the highest of them where there is no such number, or
// nothing, for what never changes and needs no graph.
struct GraphScale {
    enum class Kind { none, toHighest, fixed };
    Kind kind = Kind::toHighest;
    double full = 0;

    static constexpr GraphScale to(double number) { return {Kind::fixed, number}; }
    static constexpr GraphScale none() { return {Kind::none, 0}; }
};

// A number with the scale of its graph.
class Measure final : public Fennick::NumberIdentifier {
public:
    template <typename... Arguments>
    explicit Measure(GraphScale graph, Arguments&&... arguments)
        : NumberIdentifier(std::forward<Arguments>(arguments)...), graph_(graph)
    {
    }
    GraphScale graph() const { return graph_; }

private:
    const GraphScale graph_;
};

// What Pellora's data providers have in common: a store, and the keys of their
// readings in the order in which they are shown. A provider whose subject the
// machine lacks has no readings. Thread: the one that refreshes.
class Provider : public Fennick::IDataProvider {
public:
    std::optional<Platform::Number> valueFor(std::string_view key) const override { return store_->valueFor(key); }
    std::string stringFor(std::string_view key) const override { return store_->stringFor(key); }
    std::shared_ptr<Fennick::IDataStore> store() const override { return store_; }
    std::int64_t historySize() const override { return store_->historySize(); }
    void setHistorySize(std::int64_t size) override { store_->setHistorySize(size); }

    const std::vector<std::string>& keys() const { return keys_; }

protected:
    // New readings, named in the user's language: a percentage (0 to 100) with at
    // most one decimal, a number of bytes, a number with fixed decimals.
    NumberReading addPercentage(const std::string& key, const std::string& name);
    NumberReading addSize(const std::string& key, const std::string& name, GraphScale graph = {});
    NumberReading addRaw(const std::string& key, const std::string& name, int decimals, GraphScale graph = {});
    void add(const std::shared_ptr<Fennick::Identifier>& reading);

private:
    const std::shared_ptr<Fennick::IDataStore> store_ = std::make_shared<Fennick::DataStore>();
    std::vector<std::string> keys_;
};

// Gives a reading its number. One that stays absent is left alone: setting it
// absent again and again would use its history up.
template <typename T>
void take(const NumberReading& reading, std::optional<T> number)
{
    if (number || reading->value()) reading->set(number);
}

}  // namespace Pellora
