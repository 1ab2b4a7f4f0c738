#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Fennick/datastore/KeyedTable.h"
#include "Fennick/datastore/ThreadedObject.h"

namespace Fennick {

// A thread-confined map. Writes by key are asynchronous: they return before the
// map has changed, and every later read of the same thread sees them. As a
// collection it gives (key, value) pairs by value, each step one consistent read
// while others write. Thread: any; an iterator, one at a time.
template <typename Key, typename Value>
class RKDictionary : public ThreadedObject<KeyedTable<Key, Value>> {
public:
    using Map = KeyedTable<Key, Value>;
    using Entry = typename Map::Entry;

    // A place in the map, valid through every change of it.
    struct Index {
        typename Map::Serial serial;
        friend auto operator<=>(const Index&, const Index&) = default;
    };

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        reference operator*() const { return current_->second; }
        pointer operator->() const { return &current_->second; }
        Iterator& operator++()
        {
            current_ = dictionary_->entryFrom({current_->first.serial + 1});
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b)
        {
            if (!a.current_ || !b.current_) return !a.current_ && !b.current_;
            return a.current_->first == b.current_->first;
        }

    private:
        friend class RKDictionary;
        explicit Iterator(const RKDictionary* dictionary) : dictionary_(dictionary) {}

        const RKDictionary* dictionary_;
        std::optional<std::pair<Index, Entry>> current_;  // absent past the last entry
    };

    explicit RKDictionary(Map map = {}, ThreadingType threadingType = ThreadingType::concurrent)
        : ThreadedObject<Map>(std::move(map), threadingType)
    {
    }

    // The value under the key; absent when there is none.
    template <typename KeyView>
    std::optional<Value> operator[](const KeyView& key) const
    {
        return this->read([&](const Map& map) -> std::optional<Value> {
            const Value* value = map.find(key);
            if (!value) return std::nullopt;
            return *value;
        });
    }
    // Stores the value under the key; an absent one removes the key.
    void set(Key key, std::optional<Value> value)
    {
        // The block keeps what was replaced, so that it dies with the block, outside the write.
        this->write([key = std::move(key), value = std::move(value)](Map& map) mutable {
            value = map.replace(key, std::move(value));
        });
    }
    // Reads the entry, lets `block(std::optional<Value>&)` change it and writes
    // the outcome: two steps, between which others may write.
    template <typename Block>
    void modify(Key key, Block&& block)
    {
        std::optional<Value> value = (*this)[key];
        block(value);
        set(std::move(key), std::move(value));
    }

    // A snapshot.
    std::vector<Value> values() const
    {
        return this->read([](const Map& map) {
            std::vector<Value> values;
            values.reserve(map.size());
            map.forEach([&](const Entry& entry) { values.push_back(entry.value); });
            return values;
        });
    }
    // Returns when the map is empty.
    void removeAll()
    {
        const Map removed = this->writeSync([](Map& map) { return map.takeAll(); });
    }

    std::size_t count() const
    {
        return this->read([](const Map& map) { return map.size(); });
    }
    std::size_t size() const { return count(); }
    bool isEmpty() const { return count() == 0; }

    // The places in the order of the map; the one behind the last is the end.
    Index startIndex() const { return indexFrom({0}); }
    Index endIndex() const { return {~typename Map::Serial{0}}; }
    Index index(Index after) const { return after == endIndex() ? after : indexFrom({after.serial + 1}); }
    // The entry at the place; absent when it has been removed.
    std::optional<Entry> operator[](Index index) const
    {
        const auto found = entryFrom(index);
        if (!found || found->first != index) return std::nullopt;
        return found->second;
    }

    Iterator begin() const
    {
        Iterator first(this);
        first.current_ = entryFrom({0});
        return first;
    }
    Iterator end() const { return Iterator(this); }

private:
    Index indexFrom(Index index) const
    {
        return this->read([&](const Map& map) {
            const auto found = map.firstFrom(index.serial);
            return found ? Index{found->serial} : endIndex();
        });
    }

    std::optional<std::pair<Index, Entry>> entryFrom(Index index) const
    {
        return this->read([&](const Map& map) -> std::optional<std::pair<Index, Entry>> {
            const auto found = map.firstFrom(index.serial);
            if (!found) return std::nullopt;
            return std::pair(Index{found->serial}, *found->entry);
        });
    }
};

}  // namespace Fennick
