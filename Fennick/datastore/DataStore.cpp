#include "Fennick/datastore/DataStore.h"

#include <utility>

#include "Fennick/datastore/StringIdentifier.h"
#include "Fennick/datastore/WrappedIdentifier.h"

namespace Fennick {

using Platform::Number;
using Kind = Identifier::Kind;

namespace {

const std::shared_ptr<Identifier>* stored(const IdentifierMap::Map& map, std::string_view key)
{
    const std::shared_ptr<Identifier>* found = map.find(key);
    return found && *found ? found : nullptr;
}

// Any identifier as one of the protocols; the store's own classes without a search.
template <typename Protocol>
Protocol* as(Identifier* identifier)
{
    if (!identifier || identifier->kind() == Kind::wrapped) return nullptr;
    if (identifier->kind() == Kind::number) return static_cast<NumberIdentifier*>(identifier);
    if (identifier->kind() == Kind::string) return static_cast<StringIdentifier*>(identifier);
    return dynamic_cast<Protocol*>(identifier);
}

bool isReading(const Identifier* identifier)
{
    return identifier && (identifier->kind() == Kind::number || identifier->kind() == Kind::string);
}

}  // namespace

std::shared_ptr<Identifier> DataStore::entry(std::string_view key) const
{
    return data_.read([&](const IdentifierMap::Map& map) -> std::shared_ptr<Identifier> {
        const auto* found = stored(map, key);
        return found ? *found : nullptr;
    });
}

// Entry and alias in one read of the map, so that both are of the same moment.
std::shared_ptr<Identifier> DataStore::identifierFor(std::string_view key) const
{
    return data_.read([&](const IdentifierMap::Map& map) -> std::shared_ptr<Identifier> {
        const auto* found = stored(map, key);
        if (found && (*found)->kind() == Kind::wrapped) {
            const auto& alias = static_cast<const WrappedIdentifier&>(**found);
            found = alias.readWrappedIdentifier([&](std::string_view target) { return stored(map, target); });
        }
        return found ? *found : nullptr;
    });
}

std::optional<Number> DataStore::valueFor(std::string_view key) const
{
    const std::shared_ptr<Identifier> found = identifierFor(key);
    if (!isReading(found.get())) return std::nullopt;
    return found->value();
}

std::string DataStore::stringFor(std::string_view key) const
{
    const std::shared_ptr<Identifier> found = identifierFor(key);
    return isReading(found.get()) ? found->description() : "-";
}

void DataStore::setHistorySize(std::int64_t size)
{
    historySize_ = size;
    for (const std::shared_ptr<Identifier>& each : data_.values()) {
        if (auto* provider = as<HistoryProvider>(each.get())) provider->setHistorySize(size);
    }
}

void DataStore::removeAll()
{
    data_.removeAll();
}

bool DataStore::contains(std::string_view key) const
{
    return data_.read([&](const IdentifierMap::Map& map) { return map.find(key) != nullptr; });
}

bool DataStore::hasHistory(std::string_view key) const
{
    return as<HistoryProvider>(identifierFor(key).get()) != nullptr;
}

void DataStore::add(const std::shared_ptr<Identifier>& identifier)
{
    if (!identifier) return;
    if (auto* provider = as<HistoryProvider>(identifier.get())) provider->setHistorySize(historySize_);
    data_.set(identifier->identifier(), identifier);
}

void DataStore::remove(std::string_view key)
{
    data_.set(std::string(key), std::nullopt);
}

void DataStore::remove(const Identifier& identifier)
{
    remove(identifier.identifier());
}

// A snapshot of the other store, written as one barrier: no reader sees half of it.
void DataStore::merge(IDataStore& store)
{
    using Entries = std::vector<IdentifierMap::Entry>;
    auto entries = store.data().read([](const IdentifierMap::Map& map) {
        Entries copies;
        copies.reserve(map.size());
        map.forEach([&](const IdentifierMap::Entry& each) { copies.push_back(each); });
        return copies;
    });
    if (entries.empty()) return;
    data_.write([entries = std::move(entries)](IdentifierMap::Map& map) mutable {
        // What was replaced stays with the block and dies with it, outside the write.
        for (IdentifierMap::Entry& each : entries) {
            each.value = map.replace(each.key, std::move(each.value)).value_or(nullptr);
        }
    });
}

void DataStore::setString(std::optional<std::string> text, std::string_view key)
{
    const std::shared_ptr<Identifier> found = entry(key);
    if (!found || found->kind() != Kind::string) return;
    static_cast<StringIdentifier&>(*found).setString(std::move(text));
}

void DataStore::setString(std::optional<std::string> text, const Number& number, std::string_view key)
{
    const std::shared_ptr<Identifier> found = entry(key);
    if (!found || found->kind() != Kind::string) return;
    static_cast<StringIdentifier&>(*found).setString(std::move(text), number);
}

std::optional<std::vector<Number>> DataStore::historyFor(std::string_view key) const
{
    const std::shared_ptr<Identifier> found = identifierFor(key);
    const auto* provider = as<HistoryProvider>(found.get());
    if (!provider) return std::nullopt;
    return provider->history();
}

std::optional<Number> DataStore::minFor(std::string_view key) const
{
    const std::shared_ptr<Identifier> found = identifierFor(key);
    const auto* provider = as<MinValueProvider>(found.get());
    return provider ? provider->min() : std::nullopt;
}

std::optional<Number> DataStore::maxFor(std::string_view key) const
{
    const std::shared_ptr<Identifier> found = identifierFor(key);
    const auto* provider = as<MaxValueProvider>(found.get());
    return provider ? provider->max() : std::nullopt;
}

}  // namespace Fennick
