#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

#include "Fennick/datastore/KeyHash.h"

namespace Fennick {

// A hash map with open addressing whose entries keep the order in which their
// keys came. Each entry has a serial number that grows in that order and is
// never used twice: a place in the table that stays valid through every change.
// Text keys are looked up by string_view. A value; one writer or many readers.
template <typename Key, typename Value>
class KeyedTable {
public:
    struct Entry {
        Key key;
        Value value;
    };
    using Serial = std::uint64_t;

    KeyedTable() = default;
    KeyedTable(std::initializer_list<Entry> entries)
    {
        for (const Entry& entry : entries) replace(entry.key, std::optional<Value>(entry.value));
    }

    std::size_t size() const { return size_; }

    // The value under the key; null when there is none. Valid until the next change.
    template <typename KeyView>
    const Value* find(const KeyView& key) const
    {
        const std::size_t cell = cellOf(key, KeyHash::of(key));
        return cell == nowhere ? nullptr : &entries_[cells_[cell].position].entry->value;
    }

    // Puts a value under the key, or removes the key when it is absent; what was
    // there before. A key that was there keeps its place.
    std::optional<Value> replace(const Key& key, std::optional<Value> value)
    {
        const std::uint64_t hash = KeyHash::of(key);
        const std::size_t cell = cellOf(key, hash);
        if (cell == nowhere) {
            if (value) insert(key, hash, std::move(*value));
            return std::nullopt;
        }
        Place& place = entries_[cells_[cell].position];
        if (value) return std::exchange(place.entry->value, std::move(*value));
        std::optional<Value> previous(std::move(place.entry->value));
        place.entry.reset();
        cells_[cell] = Cell{removed, 0};
        --size_;
        return previous;
    }

    // Everything, taken out; the numbering goes on, so places stay unique.
    KeyedTable takeAll()
    {
        KeyedTable taken;
        std::swap(taken, *this);
        nextSerial_ = taken.nextSerial_;
        return taken;
    }

    // The first entry at this place or behind it, and its place.
    struct Found {
        Serial serial;
        const Entry* entry;
    };
    std::optional<Found> firstFrom(Serial serial) const
    {
        auto place = std::lower_bound(entries_.begin(), entries_.end(), serial,
                                      [](const Place& each, Serial wanted) { return each.serial < wanted; });
        while (place != entries_.end() && !place->entry) ++place;
        if (place == entries_.end()) return std::nullopt;
        return Found{place->serial, &*place->entry};
    }

    template <typename Visitor>
    void forEach(const Visitor& visit) const
    {
        for (const Place& place : entries_) {
            if (place.entry) visit(*place.entry);
        }
    }

private:
    struct Place {
        Serial serial;
        std::optional<Entry> entry;  // absent once removed, until the next rebuilding
    };
    // A position in entries_ and the hash's upper half, to tell keys apart at once.
    struct Cell {
        std::uint32_t position = vacant;
        std::uint32_t tag = 0;
    };

    static constexpr std::uint32_t vacant = 0xFFFFFFFF;
    static constexpr std::uint32_t removed = 0xFFFFFFFE;
    static constexpr std::size_t nowhere = ~std::size_t{0};

    static std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

    template <typename KeyView>
    std::size_t cellOf(const KeyView& key, std::uint64_t hash) const
    {
        if (cells_.empty()) return nowhere;
        const std::size_t mask = cells_.size() - 1;
        for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
            const Cell& cell = cells_[at];
            if (cell.position == vacant) return nowhere;
            if (cell.tag != tagOf(hash) || cell.position == removed) continue;
            if (entries_[cell.position].entry->key == key) return at;
        }
    }

    void insert(const Key& key, std::uint64_t hash, Value value)
    {
        // Every entry, removed ones too, holds at most one cell; half of the cells stay vacant.
        if ((entries_.size() + 1) * 2 > cells_.size()) rebuild();
        entries_.push_back(Place{nextSerial_++, Entry{key, std::move(value)}});
        occupy(hash, entries_.size() - 1);
        ++size_;
    }

    void occupy(std::uint64_t hash, std::size_t position)
    {
        const std::size_t mask = cells_.size() - 1;
        std::size_t at = hash & mask;
        while (cells_[at].position < removed) at = (at + 1) & mask;
        cells_[at] = Cell{static_cast<std::uint32_t>(position), tagOf(hash)};
    }

    // Drops removed entries and makes room for as many again.
    void rebuild()
    {
        std::erase_if(entries_, [](const Place& place) { return !place.entry; });
        std::size_t count = 16;
        while (count < (entries_.size() + 1) * 4) count *= 2;
        cells_.assign(count, Cell{});
        for (std::size_t at = 0; at < entries_.size(); ++at) occupy(KeyHash::of(entries_[at].entry->key), at);
    }

    std::vector<Place> entries_;
    std::vector<Cell> cells_;
    std::size_t size_ = 0;
    Serial nextSerial_ = 0;
};

}  // namespace Fennick
