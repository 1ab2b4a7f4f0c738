#include "Fennick/coding/_AnyEncodable.h"

#include <vector>

#include "Fennick/coding/AnyDictionary.h"

namespace Fennick {

using Platform::EncodingError;
using Platform::Number;
using Platform::ValueSink;

// Feeds a value to a sink, with the open containers on a stack of its own.
class AnyValueFeeder {
public:
    explicit AnyValueFeeder(ValueSink& sink) : sink_(sink) {}

    void feed(const AnyValue& root)
    {
        value(root);
        while (!open_.empty()) step();
    }

private:
    struct Level {
        const AnyValue* container;
        std::size_t next = 0;
    };

    void step()
    {
        const AnyValue& container = *open_.back().container;
        const std::size_t place = open_.back().next++;
        if (container.kind() == AnyValue::Kind::array) {
            if (place < container.array().size()) return value(container.array()[place]);
            sink_.endArray();
        } else {
            if (place < container.dictionary().size()) return member(container, place);
            sink_.endDictionary();
        }
        open_.pop_back();
    }

    void member(const AnyValue& dictionary, std::size_t place)
    {
        const auto& entry = dictionary.dictionary().begin()[static_cast<std::ptrdiff_t>(place)];
        sink_.key(*entry.key.asText());
        value(entry.value);
    }

    void value(const AnyValue& value)
    {
        using Kind = AnyValue::Kind;
        switch (value.kind()) {
            case Kind::empty:
            case Kind::null:
                return sink_.null();
            case Kind::boolean:
                return sink_.boolean(*value.asBool());
            case Kind::int8:
            case Kind::int16:
            case Kind::int32:
            case Kind::int64:
            case Kind::intWord:
                return sink_.integer(value.load<std::int64_t>());
            case Kind::uint8:
            case Kind::uint16:
            case Kind::uint32:
            case Kind::uint64:
            case Kind::uintWord:
                return sink_.unsignedInteger(value.load<std::uint64_t>());
            case Kind::float32:
                return sink_.real32(static_cast<float>(value.load<double>()));
            case Kind::float64:
                return sink_.real(value.load<double>());
            case Kind::text:
                return sink_.text(*value.asText());
            case Kind::date:
                return sink_.date(*value.asDate());
            case Kind::url:
                return sink_.url(*value.asUrl());
            case Kind::number:
                return number(*value.asNumber());
            case Kind::array:
                sink_.beginArray();
                return open_.push_back({&value});
            case Kind::dictionary:
                return dictionary(value);
            case Kind::object:
                refuse(value, "AnyEncodable value cannot be encoded");
        }
    }

    void dictionary(const AnyValue& value)
    {
        for (const auto& entry : value.dictionary()) {
            if (!entry.key.asText()) refuse(value, "AnyEncodable value cannot be encoded");
        }
        sink_.beginDictionary();
        open_.push_back({&value});
    }

    void number(const Number& number)
    {
        switch (number.typeCode()) {
            case 'c':
                return sink_.boolean(number.boolValue());
            case 's':
            case 'i':
            case 'l':
            case 'q':
                return sink_.integer(number.int64Value());
            case 'C':
            case 'S':
            case 'I':
            case 'L':
            case 'Q':
                return sink_.unsignedInteger(number.uint64Value());
            case 'f':
                return sink_.real32(static_cast<float>(number.doubleValue()));
            case 'd':
                return sink_.real(number.doubleValue());
            default:
                refuse(number, "NSNumber cannot be encoded because its type is not handled");
        }
    }

    template <typename T>
    [[noreturn]] void refuse(const T& value, const char* description) const
    {
        throw EncodingError::invalidValue(value, sink_.codingPath(), description);
    }

    ValueSink& sink_;
    std::vector<Level> open_;
};

void encodeAnyValue(const AnyValue& value, Platform::Encoder& encoder)
{
    AnyValueFeeder(encoder.sink()).feed(value);
}

}  // namespace Fennick
