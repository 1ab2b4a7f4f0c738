#include "platform/bundle/PropertyList.h"

#include <algorithm>
#include <limits>

namespace Platform {

namespace {

// Below this a scan over the entries beats hashing the key.
constexpr std::size_t indexedFrom = 24;

}  // namespace

PropertyListDictionary::PropertyListDictionary() = default;
PropertyListDictionary::PropertyListDictionary(const PropertyListDictionary&) = default;
PropertyListDictionary::PropertyListDictionary(PropertyListDictionary&&) noexcept = default;
PropertyListDictionary& PropertyListDictionary::operator=(const PropertyListDictionary&) = default;
PropertyListDictionary& PropertyListDictionary::operator=(PropertyListDictionary&&) noexcept = default;
PropertyListDictionary::~PropertyListDictionary() = default;

PropertyListDictionary::PropertyListDictionary(std::initializer_list<Entry> entries)
{
    for (const auto& [key, value] : entries) set(key, value);
}

std::optional<std::size_t> PropertyListDictionary::placeOf(std::string_view key) const
{
    if (!places_.empty()) {
        const auto place = places_.find(std::string(key));
        return place == places_.end() ? std::nullopt : std::optional(place->second);
    }
    const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.first == key; });
    if (entry == entries_.end()) return std::nullopt;
    return static_cast<std::size_t>(entry - entries_.begin());
}

const PropertyList* PropertyListDictionary::find(std::string_view key) const
{
    const auto place = placeOf(key);
    return place ? &entries_[*place].second : nullptr;
}

PropertyList* PropertyListDictionary::find(std::string_view key)
{
    const auto place = placeOf(key);
    return place ? &entries_[*place].second : nullptr;
}

void PropertyListDictionary::set(std::string_view key, PropertyList value)
{
    if (const auto place = placeOf(key)) {
        entries_[*place].second = std::move(value);
        return;
    }
    entries_.emplace_back(std::string(key), std::move(value));
    if (!places_.empty()) {
        places_.emplace(std::string(key), entries_.size() - 1);
    } else if (entries_.size() >= indexedFrom) {
        index();
    }
}

bool PropertyListDictionary::remove(std::string_view key)
{
    const auto place = placeOf(key);
    if (!place) return false;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(*place));
    index();
    return true;
}

void PropertyListDictionary::index()
{
    places_.clear();
    if (entries_.size() < indexedFrom) return;
    for (std::size_t i = 0; i < entries_.size(); ++i) places_.emplace(entries_[i].first, i);
}

bool operator==(const PropertyListDictionary& a, const PropertyListDictionary& b)
{
    if (a.size() != b.size()) return false;
    return std::all_of(a.begin(), a.end(), [&](const auto& entry) {
        const PropertyList* other = b.find(entry.first);
        return other && *other == entry.second;
    });
}

PropertyList::PropertyList() = default;
PropertyList::PropertyList(Dictionary dictionary) : content_(std::move(dictionary)) {}
PropertyList::PropertyList(const PropertyList&) = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(const PropertyList&) = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;
PropertyList::~PropertyList() = default;

bool operator==(const PropertyList& a, const PropertyList& b)
{
    return a.content_ == b.content_;
}

PropertyList::Content PropertyList::integerContent(std::uint64_t value)
{
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return value;
    return static_cast<std::int64_t>(value);
}

std::optional<std::uint64_t> PropertyList::unsignedInteger() const
{
    if (const auto* large = std::get_if<std::uint64_t>(&content_)) return *large;
    const auto small = integer();
    return small && *small >= 0 ? std::optional(static_cast<std::uint64_t>(*small)) : std::nullopt;
}

std::optional<double> PropertyList::number() const
{
    if (const auto exact = real()) return exact;
    if (const auto small = integer()) return static_cast<double>(*small);
    const auto large = unsignedInteger();
    return large ? std::optional(static_cast<double>(*large)) : std::nullopt;
}

const PropertyList* PropertyList::find(std::string_view key) const
{
    const Dictionary* entries = dictionary();
    return entries ? entries->find(key) : nullptr;
}

std::optional<std::string> PropertyList::textAt(std::string_view key) const
{
    const PropertyList* value = find(key);
    return value && value->text() ? std::optional(*value->text()) : std::nullopt;
}

}  // namespace Platform
