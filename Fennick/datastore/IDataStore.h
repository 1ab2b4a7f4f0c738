#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/DataStoreSlots.h"
#include "Fennick/datastore/Identifier.h"
#include "Fennick/datastore/InfoProvider.h"
#include "Fennick/datastore/RKDictionary.h"

namespace Fennick {

class IDataStore;

using IdentifierMap = RKDictionary<std::string, std::shared_ptr<Identifier>>;

namespace Slots {

class StoreContent : public InfoProvider {
public:
    // The map itself, from key to identifier.
    virtual IdentifierMap& data() = 0;

    // The length of every stored identifier's history. Setting it, even to the
    // same length, resets those histories to zeros.
    virtual std::int64_t historySize() const = 0;
    virtual void setHistorySize(std::int64_t size) = 0;

    // The identifier under the key, or the one that an alias there stands for; null when there is none.
    virtual std::shared_ptr<Identifier> identifierFor(std::string_view key) const = 0;
    // The same, if it is of this class or protocol, else null.
    template <typename T>
    std::shared_ptr<T> identifierAs(std::string_view key) const
    {
        return std::dynamic_pointer_cast<T>(identifierFor(key));
    }

    // Returns when the map is empty.
    virtual void removeAll() = 0;
    // Whether an identifier, be it an alias, is stored under exactly this key.
    virtual bool contains(std::string_view key) const = 0;
    virtual bool hasHistory(std::string_view key) const = 0;

    // Stores the identifier under its own key, replacing what was there, and
    // gives it the store's history length. Null is ignored.
    virtual void add(const std::shared_ptr<Identifier>& identifier) = 0;
    virtual void remove(std::string_view key) = 0;
    virtual void remove(const Identifier& identifier) = 0;
    // Takes over every entry of another store; histories stay as they are.
    virtual void merge(IDataStore& store) = 0;

protected:
    void assign() {}  // what the first slot's using-declaration finds
    void raise() {}
};

template <typename Base>
class StoreTexts : public Base {
public:
    // Change a StringIdentifier under the key; nothing else is touched.
    virtual void setString(std::optional<std::string> text, std::string_view key) = 0;
    virtual void setString(std::optional<std::string> text, const Platform::Number& number, std::string_view key) = 0;

    // Absent when the key, or what an alias there stands for, has none.
    virtual std::optional<std::vector<Platform::Number>> historyFor(std::string_view key) const = 0;
    virtual std::optional<Platform::Number> minFor(std::string_view key) const = 0;
    virtual std::optional<Platform::Number> maxFor(std::string_view key) const = 0;

protected:
    void readHistory() const {}
    void readValue() const {}
};

using StoreWriting = StoreWriteChain<StoreIncrementSlot, StoreWriteChain<StoreSetSlot, StoreContent>>;
using StoreReading = StoreValueChain<StoreValueSlot, StoreHistoryChain<StoreHistorySlot, StoreTexts<StoreWriting>>>;

}  // namespace Slots

// Identifiers under text keys. Reading follows an alias, one level deep; writing
// never does. Unknown keys read as absent, 0, an empty list or "-", and writing to
// them does nothing. Thread: any.
class IDataStore : public Slots::StoreReading {
public:
    // Sets the NumberIdentifier under the key by its member of this type.
    template <Slots::StoreWritable T>
    void set(T value, std::string_view key)
    {
        this->assign(value, key);
    }
    template <Slots::StoreWritable T>
    void set(std::optional<T> value, std::string_view key)
    {
        this->assign(value, key);
    }
    // Adds to the number that the key reads as and sets the sum under the key. A
    // sum outside the type changes nothing.
    template <Slots::StoreWritable T>
    void increment(T delta, std::string_view key)
    {
        this->raise(delta, key);
    }

    template <Slots::StoreHistoryReadable T>
    std::vector<T> historyAs(std::string_view key) const
    {
        return this->readHistory(key, Slots::Tag<T>());
    }
    template <Slots::StoreReadable T>
    T valueAs(std::string_view key) const
    {
        return this->readValue(key, Slots::Tag<T>());
    }
};

}  // namespace Fennick
