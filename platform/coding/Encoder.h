#pragma once

#include <any>
#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/coding/CodingErrors.h"
#include "platform/coding/CodingFields.h"
#include "platform/coding/ValueSink.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Url.h"

namespace Platform {

class Encoder;
class KeyedEncodingContainer;
class UnkeyedEncodingContainer;
class SingleValueEncodingContainer;

// A type that writes itself to an encoder.
template <typename T>
concept SelfEncoding = requires(const T& value, Encoder& encoder)
{
    value.encode(encoder);
};

// Takes one value, by one of its containers or by its sink; asking a second
// time is a programming error. A container is finished when it is destroyed,
// so a nested one has to end before its parent takes the next value. A value
// that writes nothing becomes an empty dictionary.
// Thread: one at a time.
class Encoder {
public:
    explicit Encoder(ValueSink& sink) : sink_(sink) {}
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    CodingPath codingPath() const { return sink_.codingPath(); }
    KeyedEncodingContainer keyedContainer();
    UnkeyedEncodingContainer unkeyedContainer();
    SingleValueEncodingContainer singleValueContainer();

    // Where a type that walks itself writes its one value.
    ValueSink& sink();
    bool hasValue() const { return hasValue_; }

    // Writes a value of any encodable type to a sink: a boolean, number, text,
    // Date, Url, an optional of these (absent is null), a vector, a map from
    // text, a record with coding fields, or a type with its own encode().
    template <typename T>
    static void write(const T& value, ValueSink& sink);

private:
    template <typename T>
    static void writeSelf(const T& value, ValueSink& sink);

    ValueSink& sink_;
    bool hasValue_ = false;
};

// Keeps one array or dictionary open while it lives. While an exception
// passes, the document is lost anyway and nothing is written.
class OpenContainer {
public:
    OpenContainer(const OpenContainer&) = delete;
    OpenContainer& operator=(const OpenContainer&) = delete;

    CodingPath codingPath() const { return sink_.codingPath(); }

protected:
    OpenContainer(ValueSink& sink, OpenContainer* parent, void (ValueSink::*end)());
    ~OpenContainer() noexcept(false);

    // The sink, when no nested container is open.
    ValueSink& sink();

private:
    ValueSink& sink_;
    OpenContainer* parent_;
    void (ValueSink::*end_)();
    int exceptions_;
    bool isNestedOpen_ = false;
};

// Writes a dictionary's members, in the order of the calls.
class KeyedEncodingContainer : public OpenContainer {
public:
    void encodeNil(std::string_view key);
    template <typename T>
    void encode(const T& value, std::string_view key)
    {
        sink().key(key);
        Encoder::write(value, sink());
    }
    // Leaves an absent value out.
    template <typename T>
    void encodeIfPresent(const std::optional<T>& value, std::string_view key)
    {
        if (value) encode(*value, key);
    }
    KeyedEncodingContainer nestedContainer(std::string_view key);
    UnkeyedEncodingContainer nestedUnkeyedContainer(std::string_view key);

private:
    friend class Encoder;
    friend class UnkeyedEncodingContainer;
    KeyedEncodingContainer(ValueSink& sink, OpenContainer* parent);
};

// Writes an array's elements.
class UnkeyedEncodingContainer : public OpenContainer {
public:
    void encodeNil() { sink().null(); }
    template <typename T>
    void encode(const T& value)
    {
        Encoder::write(value, sink());
    }
    KeyedEncodingContainer nestedContainer();
    UnkeyedEncodingContainer nestedUnkeyedContainer();

private:
    friend class Encoder;
    friend class KeyedEncodingContainer;
    UnkeyedEncodingContainer(ValueSink& sink, OpenContainer* parent);
};

// Writes one value.
class SingleValueEncodingContainer {
public:
    explicit SingleValueEncodingContainer(Encoder& encoder) : encoder_(encoder) {}

    CodingPath codingPath() const { return encoder_.codingPath(); }
    void encodeNil() { encoder_.sink().null(); }
    template <typename T>
    void encode(const T& value)
    {
        Encoder::write(value, encoder_.sink());
    }

private:
    Encoder& encoder_;
};

namespace Coding {

template <typename T>
inline constexpr bool isUnencodable = false;

// One member of a record; an absent optional one is left out.
template <typename T>
void writeField(KeyedEncodingContainer& record, std::string_view key, const T& member)
{
    record.encode(member, key);
}
template <typename T>
void writeField(KeyedEncodingContainer& record, std::string_view key, const std::optional<T>& member)
{
    record.encodeIfPresent(member, key);
}

template <CodedRecord T>
void writeRecord(const T& value, ValueSink& sink)
{
    Encoder encoder(sink);
    auto container = encoder.keyedContainer();
    std::apply([&](const auto&... field) { (writeField(container, field.key, value.*field.member), ...); },
               T::codingFields());
}

template <typename T>
void writeValue(const std::optional<T>& value, ValueSink& sink)
{
    value ? Encoder::write(*value, sink) : sink.null();
}

template <typename T>
void writeValue(const std::vector<T>& values, ValueSink& sink)
{
    sink.beginArray();
    for (const T& value : values) Encoder::write(value, sink);
    sink.endArray();
}

template <typename T>
void writeValue(const std::map<std::string, T>& values, ValueSink& sink)
{
    sink.beginDictionary();
    for (const auto& [key, value] : values) {
        sink.key(key);
        Encoder::write(value, sink);
    }
    sink.endDictionary();
}

}  // namespace Coding

template <typename T>
void Encoder::writeSelf(const T& value, ValueSink& sink)
{
    Encoder encoder(sink);
    value.encode(encoder);
    if (!encoder.hasValue()) encoder.keyedContainer();
}

template <typename T>
void Encoder::write(const T& value, ValueSink& sink)
{
    if constexpr (SelfEncoding<T>) {
        writeSelf(value, sink);
    } else if constexpr (CodedRecord<T>) {
        Coding::writeRecord(value, sink);
    } else if constexpr (std::same_as<T, bool>) {
        sink.boolean(value);
    } else if constexpr (std::same_as<T, float>) {
        sink.real32(value);
    } else if constexpr (std::same_as<T, double>) {
        sink.real(value);
    } else if constexpr (std::unsigned_integral<T>) {
        sink.unsignedInteger(value);
    } else if constexpr (std::signed_integral<T>) {
        sink.integer(value);
    } else if constexpr (std::convertible_to<const T&, std::string_view>) {
        sink.text(value);
    } else if constexpr (std::same_as<T, Date>) {
        sink.date(value);
    } else if constexpr (std::same_as<T, Url>) {
        sink.url(value);
    } else if constexpr (requires { Coding::writeValue(value, sink); }) {
        Coding::writeValue(value, sink);
    } else {
        static_assert(Coding::isUnencodable<T>, "This type is not encodable.");
    }
}

}  // namespace Platform
