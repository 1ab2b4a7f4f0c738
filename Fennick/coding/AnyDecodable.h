#pragma once

#include "Fennick/coding/_AnyDecodable.h"

namespace Fennick {

// Decodes a value whose type is only known at run time.
struct AnyDecodable : _AnyDecodable<AnyDecodable> {
    AnyValue value;

    AnyDecodable() = default;
    template <std::convertible_to<AnyValue> T>
    AnyDecodable(T&& any) : value(std::forward<T>(any))
    {
    }

    friend bool operator==(const AnyDecodable& a, const AnyDecodable& b) { return a.value == b.value; }
};

}  // namespace Fennick

template <>
struct std::hash<Fennick::AnyDecodable> {
    std::size_t operator()(const Fennick::AnyDecodable& any) const { return any.value.hash(); }
};
