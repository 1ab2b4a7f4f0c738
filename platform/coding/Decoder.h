#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/coding/CodingErrors.h"
#include "platform/coding/CodingFields.h"
#include "platform/coding/CodingStrategies.h"
#include "platform/coding/ValueTape.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Url.h"

namespace Platform {

class Decoder;
class KeyedDecodingContainer;
class UnkeyedDecodingContainer;
class SingleValueDecodingContainer;

// A type that makes itself from a decoder.
template <typename T>
concept SelfDecoding = requires(const Decoder& decoder)
{
    {
        T::decode(decoder)
        } -> std::same_as<T>;
};

// The document that decoders of one decoding stand on. It is read either once
// straight into a sink, or onto a tape that then answers everything.
class DecodingSource {
public:
    explicit DecodingSource(DateStrategy dates) : dateStrategy(dates) {}
    virtual ~DecodingSource() = default;

    const ValueTape& tape();
    bool hasTape() const { return tape_.has_value(); }
    // Feeds the whole document; throws DecodingError when it is not one.
    virtual void read(ValueSink& sink) = 0;

    const DateStrategy dateStrategy;

private:
    std::optional<ValueTape> tape_;
};

// A source whose tape was recorded by hand or by another format's reader.
class TapeSource final : public DecodingSource {
public:
    explicit TapeSource(const ValueTape& tape, DateStrategy dates = DateStrategy::secondsSince1970)
        : DecodingSource(dates), recorded_(tape)
    {
    }
    void read(ValueSink& sink) override { recorded_.replay(0, sink); }

private:
    const ValueTape& recorded_;
};

// One value of a document, to be read as what it should be. Refers to its
// source and must not outlive it. Every reading throws DecodingError with the
// value's path when the value is of another type or does not fit.
// Thread: one at a time.
class Decoder {
public:
    explicit Decoder(DecodingSource& source) : source_(&source) {}

    CodingPath codingPath() const;
    KeyedDecodingContainer keyedContainer() const;
    UnkeyedDecodingContainer unkeyedContainer() const;
    SingleValueDecodingContainer singleValueContainer() const;

    // Feeds the value and all that it holds in one pass: the quick way for a
    // type that takes any value.
    void walk(ValueSink& sink) const;

    // The value as T: a boolean, number, text, Date, Url, an optional of these,
    // a vector, a map from text, a record with coding fields, or a type with
    // its own decode().
    template <typename T>
    T decode() const;

private:
    friend class KeyedDecodingContainer;
    friend class UnkeyedDecodingContainer;
    friend class SingleValueDecodingContainer;
    using Kind = ValueTape::Kind;

    Decoder(DecodingSource& source, ValueTape::Node node) : source_(&source), node_(node) {}

    const ValueTape& tape() const { return source_->tape(); }
    bool isNull() const { return tape().kind(node_) == Kind::null; }
    bool boolean() const;
    std::int64_t signedWithin(std::int64_t low, std::int64_t high) const;
    std::uint64_t unsignedUpTo(std::uint64_t high) const;
    double real() const;
    float real32() const;
    std::string text() const;
    Date date() const;
    Url url() const;
    [[noreturn]] void throwMismatch(std::string_view wanted) const;
    [[noreturn]] void throwCorrupted(std::string description) const;

    template <typename T>
    void readField(const KeyedDecodingContainer& record, std::string_view key, T& member) const;
    template <CodedRecord T>
    T record() const;

    DecodingSource* source_;
    ValueTape::Node node_ = 0;
};

// Reads one value, whatever it is.
class SingleValueDecodingContainer {
public:
    explicit SingleValueDecodingContainer(const Decoder& decoder) : decoder_(decoder) {}

    CodingPath codingPath() const { return decoder_.codingPath(); }
    bool decodeNil() const { return decoder_.isNull(); }
    template <typename T>
    T decode() const
    {
        return decoder_.decode<T>();
    }

private:
    Decoder decoder_;
};

// Reads a dictionary's members by key. Of a repeated key the last value counts.
class KeyedDecodingContainer {
public:
    CodingPath codingPath() const { return decoder_.codingPath(); }
    // In document order, each once.
    std::vector<std::string> allKeys() const;
    // Every key with its value's decoder, in document order, repeated ones included.
    std::vector<std::pair<std::string_view, Decoder>> members() const;
    bool contains(std::string_view key) const { return find(key).has_value(); }
    // True for a null; throws when the key is missing.
    bool decodeNil(std::string_view key) const { return member(key).isNull(); }
    // The member's own decoder, for nested containers; throws when it is missing.
    Decoder member(std::string_view key) const;

    template <typename T>
    T decode(std::string_view key) const
    {
        return member(key).decode<T>();
    }
    // Absent when the key is missing or its value null.
    template <typename T>
    std::optional<T> decodeIfPresent(std::string_view key) const
    {
        const auto found = find(key);
        if (!found || found->isNull()) return std::nullopt;
        return found->decode<T>();
    }

private:
    friend class Decoder;
    explicit KeyedDecodingContainer(const Decoder& decoder) : decoder_(decoder) {}
    std::optional<Decoder> find(std::string_view key) const;

    Decoder decoder_;
};

// Reads an array's elements in order.
class UnkeyedDecodingContainer {
public:
    CodingPath codingPath() const { return decoder_.codingPath(); }
    std::size_t count() const { return decoder_.tape().count(decoder_.node_); }
    std::size_t currentIndex() const { return index_; }
    bool isAtEnd() const { return index_ >= count(); }
    // Steps over a null and answers true; leaves any other value.
    bool decodeNil();
    // The next element's decoder; throws at the end.
    Decoder next();

    template <typename T>
    T decode()
    {
        return next().decode<T>();
    }

private:
    friend class Decoder;
    explicit UnkeyedDecodingContainer(const Decoder& decoder);

    Decoder decoder_;
    ValueTape::Node next_;
    std::size_t index_ = 0;
};

namespace Coding {

template <typename T>
inline constexpr bool isOptional = false;
template <typename T>
inline constexpr bool isOptional<std::optional<T>> = true;
template <typename T>
inline constexpr bool isVector = false;
template <typename T>
inline constexpr bool isVector<std::vector<T>> = true;
template <typename T>
inline constexpr bool isTextMap = false;
template <typename T>
inline constexpr bool isTextMap<std::map<std::string, T>> = true;
template <typename T>
inline constexpr bool isUndecodable = false;

}  // namespace Coding

template <typename T>
void Decoder::readField(const KeyedDecodingContainer& record, std::string_view key, T& member) const
{
    if constexpr (Coding::isOptional<T>) {
        member = record.decodeIfPresent<typename T::value_type>(key);
    } else {
        member = record.decode<T>(key);
    }
}

template <CodedRecord T>
T Decoder::record() const
{
    T value{};
    const auto container = keyedContainer();
    std::apply([&](const auto&... field) { (readField(container, field.key, value.*field.member), ...); },
               T::codingFields());
    return value;
}

template <typename T>
T Decoder::decode() const
{
    if constexpr (SelfDecoding<T>) {
        return T::decode(*this);
    } else if constexpr (CodedRecord<T>) {
        return record<T>();
    } else if constexpr (std::same_as<T, bool>) {
        return boolean();
    } else if constexpr (std::same_as<T, float>) {
        return real32();
    } else if constexpr (std::same_as<T, double>) {
        return real();
    } else if constexpr (std::unsigned_integral<T>) {
        return static_cast<T>(unsignedUpTo(std::numeric_limits<T>::max()));
    } else if constexpr (std::signed_integral<T>) {
        return static_cast<T>(signedWithin(std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    } else if constexpr (std::same_as<T, std::string>) {
        return text();
    } else if constexpr (std::same_as<T, Date>) {
        return date();
    } else if constexpr (std::same_as<T, Url>) {
        return url();
    } else if constexpr (Coding::isOptional<T>) {
        return isNull() ? T() : T(decode<typename T::value_type>());
    } else if constexpr (Coding::isVector<T>) {
        T values;
        auto container = unkeyedContainer();
        values.reserve(container.count());
        while (!container.isAtEnd()) values.push_back(container.decode<typename T::value_type>());
        return values;
    } else if constexpr (Coding::isTextMap<T>) {
        T values;
        const auto container = keyedContainer();
        for (const auto& [key, member] : container.members()) {
            values.insert_or_assign(std::string(key), member.template decode<typename T::mapped_type>());
        }
        return values;
    } else {
        static_assert(Coding::isUndecodable<T>, "This type is not decodable.");
    }
}

}  // namespace Platform
