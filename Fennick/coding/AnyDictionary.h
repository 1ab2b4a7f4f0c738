#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "Fennick/coding/AnyValue.h"

namespace Fennick {

// Values under keys of any kind, mostly texts, in the order in which the keys
// came. A key set again keeps its place and gets the later value.
class AnyDictionary {
public:
    struct Entry {
        AnyValue key;
        AnyValue value;
    };

    AnyDictionary() = default;
    AnyDictionary(std::initializer_list<Entry> entries);
    // From key, value, key, value; moves them out.
    static AnyDictionary fromPairs(std::span<AnyValue> keysAndValues);

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

    // Null when there is no such key.
    const AnyValue* find(std::string_view key) const;
    const AnyValue* find(const AnyValue& key) const;
    // The key's value, made empty when there is none.
    AnyValue& operator[](const AnyValue& key);
    void set(AnyValue key, AnyValue value);
    // Whether there was such a key. Takes time in proportion to the size.
    bool remove(const AnyValue& key);

    // Whatever the order.
    friend bool operator==(const AnyDictionary& a, const AnyDictionary& b);

private:
    friend class AnyValue;
    static constexpr std::size_t notFound = ~std::size_t{0};

    template <typename Key>
    std::size_t placeOf(const Key& key, std::size_t hash) const;
    template <typename Key>
    std::size_t placeOf(const Key& key) const;
    void append(AnyValue key, AnyValue value);
    void rebuildIndex();
    void index(std::size_t place, std::size_t hash);

    std::vector<Entry, AnyAllocator<Entry>> entries_;
    std::vector<std::uint32_t> slots_;  // entry numbers from 1, by hash; none while the entries are few
};

}  // namespace Fennick
