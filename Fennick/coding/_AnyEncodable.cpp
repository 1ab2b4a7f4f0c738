#include "Fennick/coding/_AnyEncodable.h"

#include <memory>
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
        isContainer(root) ? open(root) : scalar(root);
        while (!open_.empty()) step();
    }

private:
    // What is left of an open array or dictionary.
    struct Level {
        const AnyValue* item = nullptr;
        const AnyValue* itemsEnd = nullptr;
        const AnyDictionary::Entry* member = nullptr;
        const AnyDictionary::Entry* membersEnd = nullptr;
        bool isArray = false;
    };

    static bool isContainer(const AnyValue& value)
    {
        return value.kind() == AnyValue::Kind::array || value.kind() == AnyValue::Kind::dictionary;
    }

    // To the next container within the innermost open one, or to its end.
    void step()
    {
        Level& level = open_.back();
        while (level.item != level.itemsEnd) {
            const AnyValue& item = *level.item++;
            if (isContainer(item)) return open(item);
            scalar(item);
        }
        while (level.member != level.membersEnd) {
            const auto& [key, value] = *level.member++;
            sink_.key(*key.asText());
            if (isContainer(value)) return open(value);
            scalar(value);
        }
        level.isArray ? sink_.endArray() : sink_.endDictionary();
        open_.pop_back();
    }

    void open(const AnyValue& value)
    {
        value.kind() == AnyValue::Kind::array ? array(value.array()) : dictionary(value);
    }

    void scalar(const AnyValue& value)
    {
        using Kind = AnyValue::Kind;
        switch (value.kind()) {
            case Kind::empty:
            case Kind::null:
                return sink_.null();
            case Kind::boolean:
                return sink_.boolean(value.load<std::int64_t>() != 0);
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
            case Kind::dictionary:
            case Kind::object:
                refuse(value, "AnyEncodable value cannot be encoded");
        }
    }

    void array(const AnyArray& items)
    {
        sink_.beginArray();
        open_.push_back({.item = items.data(), .itemsEnd = items.data() + items.size(), .isArray = true});
    }

    void dictionary(const AnyValue& value)
    {
        const AnyDictionary& members = value.dictionary();
        for (const auto& entry : members) {
            if (entry.key.kind() != AnyValue::Kind::text) refuse(value, "AnyEncodable value cannot be encoded");
        }
        sink_.beginDictionary();
        const auto* first = std::to_address(members.begin());
        open_.push_back({.member = first, .membersEnd = first + members.size()});
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
