#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "platform/runtime/Date.h"
#include "platform/runtime/Result.h"

namespace Platform {

class PropertyList;

// Texts to values in the order of their first setting. Lookup stays fast at any size.
class PropertyListDictionary {
public:
    using Entry = std::pair<std::string, PropertyList>;

    PropertyListDictionary();
    PropertyListDictionary(std::initializer_list<Entry> entries);
    PropertyListDictionary(const PropertyListDictionary&);
    PropertyListDictionary(PropertyListDictionary&&) noexcept;
    PropertyListDictionary& operator=(const PropertyListDictionary&);
    PropertyListDictionary& operator=(PropertyListDictionary&&) noexcept;
    ~PropertyListDictionary();

    const PropertyList* find(std::string_view key) const;
    PropertyList* find(std::string_view key);
    void set(std::string_view key, PropertyList value);
    // Whether there was such a key.
    bool remove(std::string_view key);

    std::size_t size() const;
    bool isEmpty() const;
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

    // By keys and values; the order does not matter.
    friend bool operator==(const PropertyListDictionary&, const PropertyListDictionary&);

private:
    std::optional<std::size_t> placeOf(std::string_view key) const;
    void index();

    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> places_;  // kept for large dictionaries only
};

// A property list: a tree of dictionaries, arrays, texts, data, dates,
// booleans, integers and reals, kept in files as XML or in a binary form. A value.
class PropertyList {
public:
    using Dictionary = PropertyListDictionary;
    using Array = std::vector<PropertyList>;
    using Data = std::vector<std::uint8_t>;

    // An empty dictionary.
    PropertyList();
    PropertyList(Dictionary dictionary);
    PropertyList(Array array) : content_(std::move(array)) {}
    PropertyList(Data data) : content_(std::move(data)) {}
    PropertyList(std::string text) : content_(std::move(text)) {}
    PropertyList(std::string_view text) : content_(std::string(text)) {}
    PropertyList(const char* text) : content_(std::string(text)) {}
    PropertyList(Date date) : content_(date) {}
    PropertyList(bool value) : content_(value) {}
    PropertyList(double value) : content_(value) {}
    // Equal integers are equal values, whatever type they came as.
    template <std::signed_integral T>
    PropertyList(T value) : content_(static_cast<std::int64_t>(value))
    {
    }
    template <std::unsigned_integral T>
    requires(!std::same_as<T, bool>) PropertyList(T value) : content_(integerContent(value)) {}

    PropertyList(const PropertyList&);
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(const PropertyList&);
    PropertyList& operator=(PropertyList&&) noexcept;
    ~PropertyList();

    // The content, when it is of the kind asked for; else null or absent.
    const Dictionary* dictionary() const { return std::get_if<Dictionary>(&content_); }
    Dictionary* dictionary() { return std::get_if<Dictionary>(&content_); }
    const Array* array() const { return std::get_if<Array>(&content_); }
    Array* array() { return std::get_if<Array>(&content_); }
    const Data* data() const { return std::get_if<Data>(&content_); }
    const std::string* text() const { return std::get_if<std::string>(&content_); }
    std::optional<Date> date() const { return value<Date>(); }
    std::optional<bool> boolean() const { return value<bool>(); }
    std::optional<double> real() const { return value<double>(); }
    // Absent also where the integer does not fit.
    std::optional<std::int64_t> integer() const { return value<std::int64_t>(); }
    std::optional<std::uint64_t> unsignedInteger() const;
    // An integer or a real as a double.
    std::optional<double> number() const;

    // The dictionary's value for the key; null where there is none or this is no dictionary.
    const PropertyList* find(std::string_view key) const;
    // The same, where the value is a text.
    std::optional<std::string> textAt(std::string_view key) const;

    // Reads XML or the binary form. The error's reason says what is wrong with
    // the bytes: too large (32 MB), nested too deeply (256 levels), damaged,
    // of another format. Dates outside 1933-2069 keep whole seconds.
    static Result<PropertyList> parse(std::string_view bytes);
    // The same from a regular file.
    static Result<PropertyList> read(const std::string& path);

    // The file forms. Refused: texts that are not UTF-8 or hold a NUL, and
    // nesting that parse() would refuse. XML keeps whole seconds of dates.
    Result<std::string> xml() const;
    Result<std::string> binary() const;

    friend bool operator==(const PropertyList&, const PropertyList&);

private:
    using Content = std::variant<Dictionary, Array, std::string, Data, Date, bool, std::int64_t, std::uint64_t, double>;

    static Content integerContent(std::uint64_t value);
    template <typename T>
    std::optional<T> value() const
    {
        const T* found = std::get_if<T>(&content_);
        return found ? std::optional<T>(*found) : std::nullopt;
    }

    Content content_;
};

// Here, where an entry is complete.
inline std::size_t PropertyListDictionary::size() const
{
    return entries_.size();
}

inline bool PropertyListDictionary::isEmpty() const
{
    return entries_.empty();
}

}  // namespace Platform
