#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>
#include <vector>

#include "Fennick/coding/AnyMemory.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Number.h"
#include "platform/runtime/Url.h"

namespace Fennick {

class AnyDictionary;
class AnyValue;
using AnyArray = std::vector<AnyValue, AnyAllocator<AnyValue>>;

// The null marker: a value that stands for null, where the empty value stands
// for none.
struct Null {
    friend bool operator==(Null, Null) = default;
};

// A value whose type is known only at run time.
//
//     AnyValue settings = AnyDictionary{{"name", "disk"}, {"limits", AnyArray{10, 2.5, nullptr}}};
//     settings["limits"][0] == 10;             // walks; what is not there is the empty value
//     settings["name"].textOr("-");
//     settings.editDictionary()["name"] = "memory";
//
// A value of 16 bytes. Copies are independent; they share what is large until
// one of them is edited. Copying, comparing, hashing and destroying never
// recurse, however deep the value is (a key that is a container apart).
// Reading: any thread.
class AnyValue {
public:
    enum class Kind : std::uint8_t {
        empty,
        null,
        boolean,
        int8,
        int16,
        int32,
        int64,    // long long
        intWord,  // long
        uint8,
        uint16,
        uint32,
        uint64,
        uintWord,
        float32,
        float64,
        text,
        date,
        url,
        number,  // a boxed number, with its type code
        array,
        dictionary,
        object,  // any other type; it has no coded form
    };

    AnyValue() noexcept : AnyValue(Kind::empty) {}
    AnyValue(std::nullptr_t) noexcept : AnyValue(Kind::empty) {}
    AnyValue(std::nullopt_t) noexcept : AnyValue(Kind::empty) {}
    AnyValue(Null) noexcept : AnyValue(Kind::null) {}
    template <Platform::NumericType T>
    AnyValue(T value) noexcept : AnyValue(kindOf<T>())
    {
        if constexpr (std::same_as<T, bool>) {
            store<std::int64_t>(value ? 1 : 0);
        } else if constexpr (std::signed_integral<T>) {
            store<std::int64_t>(value);
        } else if constexpr (std::unsigned_integral<T>) {
            store<std::uint64_t>(value);
        } else {
            store<double>(static_cast<double>(value));
        }
    }
    AnyValue(const char* text) : AnyValue(std::string_view(text)) {}
    AnyValue(const std::string& text) : AnyValue(std::string_view(text)) {}
    AnyValue(std::string_view text);
    AnyValue(Platform::Date date) noexcept : AnyValue(Kind::date) { store<double>(date.timeIntervalSince1970()); }
    AnyValue(Platform::Url url);
    template <std::same_as<Platform::Number> N>
    AnyValue(N number) : AnyValue(boxed(number))
    {
    }
    AnyValue(AnyArray array);
    AnyValue(AnyDictionary dictionary);
    // The value, or the empty value when it is absent.
    template <typename T>
    AnyValue(std::optional<T> value) : AnyValue(value ? AnyValue(*std::move(value)) : AnyValue())
    {
    }
    // Lists of, and maps from text to, what can be a value, optional ones too.
    template <std::convertible_to<AnyValue> T>
    AnyValue(const std::vector<T>& values) : AnyValue(AnyArray(values.begin(), values.end()))
    {
    }
    template <std::convertible_to<AnyValue> T>
    AnyValue(const std::map<std::string, T>& members) : AnyValue(dictionaryOf(keysAndValuesOf(members)))
    {
    }
    // A value of any other type, compared by its place in memory.
    template <typename T>
    static AnyValue object(T value)
    {
        return AnyValue(std::make_shared<const T>(std::move(value)), typeid(T));
    }

    AnyValue(const AnyValue& other) noexcept
    {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof *this);
        if (isHeld()) retain();
    }
    AnyValue(AnyValue&& other) noexcept
    {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof *this);
        other.become(Kind::empty);
    }
    AnyValue& operator=(AnyValue other) noexcept
    {
        swap(other);
        return *this;
    }
    ~AnyValue()
    {
        if (isHeld()) release();
    }
    void swap(AnyValue& other) noexcept;

    Kind kind() const { return kind_; }
    bool isEmpty() const { return kind_ == Kind::empty; }
    bool isNull() const { return kind_ == Kind::null; }
    // An integer or floating-point number of any width, or a boxed one.
    bool isNumber() const { return (kind_ >= Kind::int8 && kind_ <= Kind::float64) || kind_ == Kind::number; }

    // Each absent when the value is of another kind.
    std::optional<bool> asBool() const;
    // Whole numbers of any width that fit.
    std::optional<std::int64_t> asInteger() const;
    std::optional<std::uint64_t> asUnsigned() const;
    // Any number.
    std::optional<double> asDouble() const;
    std::optional<Platform::Number> asNumber() const;
    // Lives as long as this value is unchanged.
    std::optional<std::string_view> asText() const
    {
        if (kind_ != Kind::text) return std::nullopt;
        if (isHeld()) return heldText();
        return std::string_view(reinterpret_cast<const char*>(bytes_), size_);
    }
    std::optional<Platform::Date> asDate() const;
    std::optional<Platform::Url> asUrl() const;
    // What object() took; null when it was of another type.
    template <typename T>
    const T* as() const
    {
        return static_cast<const T*>(objectOf(typeid(T)));
    }
    std::string textOr(std::string_view otherwise) const { return std::string(asText().value_or(otherwise)); }

    // The elements or members; empty for every other kind.
    const AnyArray& array() const;
    const AnyDictionary& dictionary() const;
    // How many of them.
    std::size_t count() const;
    // An element or member; the empty value where there is none.
    const AnyValue& operator[](std::size_t index) const;
    const AnyValue& operator[](std::string_view key) const;
    const AnyValue& operator[](const char* key) const { return (*this)[std::string_view(key)]; }
    const AnyValue& operator[](int index) const { return (*this)[static_cast<std::size_t>(index)]; }

    // For editing in place. A value of another kind becomes an empty array or
    // dictionary first.
    AnyArray& editArray();
    AnyDictionary& editDictionary();

    // Numbers compare by value whatever their width, as do the members of
    // dictionaries whatever their order; other kinds are never equal to each other.
    friend bool operator==(const AnyValue& a, const AnyValue& b);
    // Whether the text stands in the value itself. Two such are equal where their bytes are.
    bool isShortText() const { return kind_ == Kind::text && !isHeld(); }
    bool hasBytesOf(const AnyValue& other) const { return words() == other.words(); }
    std::size_t hash() const;
    // A small hash of a text that stands in the value itself: equal ones have the
    // same. Absent for all others, which equal no such text.
    std::optional<std::uint8_t> shortTextHash() const
    {
        if (!isShortText()) return std::nullopt;
        const auto [first, second] = words();
        return static_cast<std::uint8_t>((first + second * 31) * 0x9E3779B97F4A7C15 >> 56);
    }

private:
    friend class AnyValueFeeder;

    struct Node;
    struct TextNode;
    struct UrlNode;
    struct NumberNode;
    struct ObjectNode;
    struct ArrayNode;
    struct DictionaryNode;

    static constexpr std::size_t inlineCapacity = 14;
    static constexpr std::uint8_t held = 0xff;

    explicit AnyValue(Kind kind) noexcept : kind_(kind) {}
    AnyValue(Kind kind, Node* node) noexcept : size_(held), kind_(kind) { store(node); }
    AnyValue(std::shared_ptr<const void> object, const std::type_info& type);
    static AnyValue boxed(const Platform::Number& number);
    static AnyValue dictionaryOf(AnyArray keysAndValues);
    template <typename Members>
    static AnyArray keysAndValuesOf(const Members& members)
    {
        AnyArray all;
        all.reserve(2 * members.size());
        for (const auto& [key, value] : members) {
            all.emplace_back(key);
            all.emplace_back(value);
        }
        return all;
    }

    template <typename T>
    static constexpr Kind kindOf()
    {
        if constexpr (std::same_as<T, bool>) return Kind::boolean;
        if constexpr (std::same_as<T, float>) return Kind::float32;
        if constexpr (std::floating_point<T> || std::same_as<T, Platform::CGFloat>) return Kind::float64;
        constexpr int step = sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 1 : sizeof(T) == 4 ? 2 : 3;
        constexpr int word = std::same_as<T, long> || std::same_as<T, unsigned long> ? 1 : 0;
        const Kind narrowest = std::unsigned_integral<T> ? Kind::uint8 : Kind::int8;
        return static_cast<Kind>(static_cast<int>(narrowest) + step + word);
    }

    template <typename T>
    void store(T payload)
    {
        std::memcpy(bytes_, &payload, sizeof(T));  // NOLINT(bugprone-sizeof-expression): a node's address too
    }
    template <typename T>
    T load() const
    {
        T payload;
        std::memcpy(&payload, bytes_, sizeof(T));  // NOLINT(bugprone-sizeof-expression)
        return payload;
    }
    template <typename N>
    N& node() const
    {
        return *static_cast<N*>(load<Node*>());
    }
    std::array<std::uint64_t, 2> words() const
    {
        std::array<std::uint64_t, 2> both;
        static_assert(sizeof both == sizeof(AnyValue));
        std::memcpy(both.data(), static_cast<const void*>(this), sizeof both);
        return both;
    }
    bool isHeld() const { return size_ == held; }
    void become(Kind kind) noexcept
    {
        size_ = 0;
        kind_ = kind;
    }
    void retain() const noexcept;
    void release() noexcept;
    static void destroy(Node* first) noexcept;
    void handOver(Node*& dying) noexcept;
    std::string_view heldText() const;
    const void* objectOf(const std::type_info& type) const;
    Platform::Number numericValue() const;
    static bool isSameScalar(const AnyValue& a, const AnyValue& b);

    alignas(8) unsigned char bytes_[inlineCapacity] = {};  // a number, a short text, or a node
    std::uint8_t size_ = 0;                                // of the short text; held: a node
    Kind kind_;
};

static_assert(sizeof(AnyValue) == 16);

}  // namespace Fennick

template <>
struct std::hash<Fennick::AnyValue> {
    std::size_t operator()(const Fennick::AnyValue& value) const { return value.hash(); }
};
