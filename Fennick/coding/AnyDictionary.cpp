#include "Fennick/coding/AnyDictionary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iterator>
#include <utility>

namespace Fennick {

namespace {

constexpr std::size_t fewEntries = 16;  // up to here looking at each is faster than hashing

std::size_t hashOf(std::string_view key)
{
    return std::hash<std::string_view>()(key);
}
std::size_t hashOf(const AnyValue& key)
{
    return key.hash();
}
// A number's hash is the number itself, so every bit of it has to matter.
std::size_t firstSlot(std::size_t hash, std::size_t mask)
{
    return hash * 0x9E3779B97F4A7C15 >> std::countl_zero(mask);
}
bool isSame(const AnyValue& key, std::string_view wanted)
{
    return key.asText() == wanted;
}
bool isSame(const AnyValue& key, const AnyValue& wanted)
{
    return wanted.isShortText() ? key.hasBytesOf(wanted) : key == wanted;
}

// Which small hashes came.
class SeenHashes {
public:
    // Whether it had come before.
    bool add(std::uint8_t hash)
    {
        std::uint64_t& word = words_[hash / 64];
        const std::uint64_t bit = std::uint64_t{1} << hash % 64;
        return (std::exchange(word, word | bit) & bit) != 0;
    }

private:
    std::array<std::uint64_t, 4> words_{};
};

}  // namespace

AnyDictionary::AnyDictionary(std::initializer_list<Entry> entries)
{
    for (const Entry& entry : entries) set(entry.key, entry.value);
}

AnyDictionary AnyDictionary::fromPairs(std::span<AnyValue> keysAndValues)
{
    AnyDictionary dictionary;
    const std::size_t count = keysAndValues.size() / 2;
    dictionary.entries_.reserve(count);
    SeenHashes seen;
    for (std::size_t i = 0; i < count; ++i) {
        AnyValue& key = keysAndValues[2 * i];
        AnyValue& value = keysAndValues[2 * i + 1];
        const std::optional<std::uint8_t> hash = key.shortTextHash();
        const bool isSurelyNew = hash && !seen.add(*hash) && count <= fewEntries;
        isSurelyNew ? dictionary.entries_.push_back({std::move(key), std::move(value)})
                    : dictionary.set(std::move(key), std::move(value));
    }
    return dictionary;
}

template <typename Key>
std::size_t AnyDictionary::placeOf(const Key& key, std::size_t hash) const
{
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = firstSlot(hash, mask); slots_[slot] != 0; slot = (slot + 1) & mask) {
        const std::size_t place = slots_[slot] - 1;
        if (isSame(entries_[place].key, key)) return place;
    }
    return notFound;
}

template <typename Key>
std::size_t AnyDictionary::placeOf(const Key& key) const
{
    if (!slots_.empty()) return placeOf(key, hashOf(key));
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        if (isSame(entries_[place].key, key)) return place;
    }
    return notFound;
}

const AnyValue* AnyDictionary::find(std::string_view key) const
{
    const std::size_t place = placeOf(key);
    return place == notFound ? nullptr : &entries_[place].value;
}

const AnyValue* AnyDictionary::find(const AnyValue& key) const
{
    const std::size_t place = placeOf(key);
    return place == notFound ? nullptr : &entries_[place].value;
}

AnyValue& AnyDictionary::operator[](const AnyValue& key)
{
    const std::size_t place = placeOf(key);
    if (place != notFound) return entries_[place].value;
    append(key, AnyValue());
    return entries_.back().value;
}

void AnyDictionary::set(AnyValue key, AnyValue value)
{
    const std::size_t place = placeOf(key);
    if (place != notFound) {
        entries_[place].value = std::move(value);
    } else {
        append(std::move(key), std::move(value));
    }
}

bool AnyDictionary::remove(const AnyValue& key)
{
    const std::size_t place = placeOf(key);
    if (place == notFound) return false;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place));
    rebuildIndex();
    return true;
}

void AnyDictionary::append(AnyValue key, AnyValue value)
{
    entries_.push_back({std::move(key), std::move(value)});
    if (entries_.size() <= fewEntries) return;
    if (entries_.size() * 2 > slots_.size()) {
        rebuildIndex();
    } else {
        index(entries_.size() - 1, entries_.back().key.hash());
    }
}

void AnyDictionary::rebuildIndex()
{
    slots_.clear();
    if (entries_.size() <= fewEntries) return;
    slots_.resize(std::bit_ceil(entries_.size()) * 4);
    for (std::size_t place = 0; place < entries_.size(); ++place) index(place, entries_[place].key.hash());
}

void AnyDictionary::index(std::size_t place, std::size_t hash)
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = firstSlot(hash, mask);
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint32_t>(place + 1);
}

bool operator==(const AnyDictionary& a, const AnyDictionary& b)
{
    return std::all_of(a.begin(), a.end(),
                       [&](const AnyDictionary::Entry& entry) {
                           const AnyValue* other = b.find(entry.key);
                           return other != nullptr && *other == entry.value;
                       }) &&
           a.size() == b.size();
}

}  // namespace Fennick
