#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/DataStore.h"
#include "Fennick/datastore/IDataProvider.h"
#include "Fennick/datastore/NumberIdentifier.h"

namespace Pellora {

using NumberReading = std::shared_ptr<Fennick::NumberIdentifier>;

// A reading between 0 and 100.
class Percentage final : public Fennick::NumberIdentifier {
public:
    Percentage(const std::string& key, const std::string& name)
        : NumberIdentifier(key, name, Fennick::IdentifierCategory::percentage, 1)
    {
    }
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
    NumberReading addSize(const std::string& key, const std::string& name);
    NumberReading addRaw(const std::string& key, const std::string& name, int decimals);
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
