#pragma once

#include "Fennick/coding/_AnyDecodable.h"
#include "Fennick/coding/_AnyEncodable.h"

namespace Fennick {

// Decodes and encodes a value whose type is only known at run time.
struct AnyCodable : _AnyDecodable<AnyCodable>, _AnyEncodable<AnyCodable> {
    AnyValue value;

    AnyCodable() = default;
    template <std::convertible_to<AnyValue> T>
    AnyCodable(T&& any) : value(std::forward<T>(any))
    {
    }

    friend bool operator==(const AnyCodable& a, const AnyCodable& b) { return a.value == b.value; }
};

}  // namespace Fennick

template <>
struct std::hash<Fennick::AnyCodable> {
    std::size_t operator()(const Fennick::AnyCodable& any) const { return any.value.hash(); }
};
