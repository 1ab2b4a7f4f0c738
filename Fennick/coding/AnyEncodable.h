#pragma once

#include "Fennick/coding/_AnyEncodable.h"

namespace Fennick {

// Encodes a value whose type is only known at run time.
struct AnyEncodable : _AnyEncodable<AnyEncodable> {
    AnyValue value;

    AnyEncodable() = default;
    template <std::convertible_to<AnyValue> T>
    AnyEncodable(T&& any) : value(std::forward<T>(any))
    {
    }

    friend bool operator==(const AnyEncodable& a, const AnyEncodable& b) { return a.value == b.value; }
};

}  // namespace Fennick

template <>
struct std::hash<Fennick::AnyEncodable> {
    std::size_t operator()(const Fennick::AnyEncodable& any) const { return any.value.hash(); }
};
