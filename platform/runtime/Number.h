#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <type_traits>

#include "platform/runtime/CGFloat.h"

namespace Platform {

template <typename T, typename... List>
concept OneOf = (std::same_as<T, List> || ...);

// The C++ types that a Number is made from and read as. long and long long are
// different types of the same width here, and so both listed.
template <typename T>
concept NumericType = OneOf<T, bool, signed char, short, int, long, long long, unsigned char, unsigned short,
                            unsigned int, unsigned long, unsigned long long, float, double, CGFloat>;

static_assert(sizeof(long) == 8 && sizeof(long long) == 8 && !std::is_same_v<long, long long>);

// An immutable boxed number that remembers the type it was made from.
// A value; 16 bytes; any thread.
class Number {
public:
    enum class Kind : std::uint8_t {
        boolean,
        signed8,
        signed16,
        signed32,
        signed64,
        unsigned8,
        unsigned16,
        unsigned32,
        unsigned64,
        float32,
        float64,
    };

    Number() : Number(0) {}

    template <NumericType T>
    Number(T value) : kind_(kindOf<T>())
    {
        if constexpr (OneOf<T, float, double, CGFloat>) {
            bits_.real = static_cast<double>(value);
        } else {
            bits_.whole = static_cast<std::int64_t>(value);
        }
    }

    // From what kind() and bits() gave, for storage that keeps them apart.
    static Number fromBits(Kind kind, std::uint64_t bits)
    {
        Number number;
        number.kind_ = kind;
        number.bits_ = std::bit_cast<decltype(bits_)>(bits);
        return number;
    }
    std::uint64_t bits() const { return std::bit_cast<std::uint64_t>(bits_); }

    Kind kind() const { return kind_; }
    bool isFloatingPoint() const { return kind_ >= Kind::float32; }
    bool isUnsigned64() const { return kind_ == Kind::unsigned64; }

    // The type's encoding character: c (also boolean) C s S i I q Q f d.
    char typeCode() const;

    // Whole readings: a fraction is cut toward zero; not-a-number reads 0; what
    // lies outside 64 bits saturates; a negative number read as unsigned gives
    // its two's complement.
    std::int64_t int64Value() const { return isFloatingPoint() ? wholeOf(bits_.real) : bits_.whole; }
    std::uint64_t uint64Value() const
    {
        return isFloatingPoint() ? unsignedOf(bits_.real) : static_cast<std::uint64_t>(bits_.whole);
    }
    double doubleValue() const
    {
        if (isFloatingPoint()) return bits_.real;
        return isUnsigned64() ? static_cast<double>(static_cast<std::uint64_t>(bits_.whole))
                              : static_cast<double>(bits_.whole);
    }
    bool boolValue() const { return isFloatingPoint() ? bits_.real != 0 : bits_.whole != 0; }

    // Any of the types above; whole readings wrap to the type's width, and a
    // CGFloat is made from the single-precision reading.
    template <NumericType T>
    T as() const
    {
        if constexpr (std::same_as<T, bool>) {
            return boolValue();
        } else if constexpr (std::same_as<T, CGFloat>) {
            return CGFloat(static_cast<float>(doubleValue()));
        } else if constexpr (std::floating_point<T>) {
            return static_cast<T>(doubleValue());
        } else if constexpr (std::unsigned_integral<T>) {
            return static_cast<T>(uint64Value());
        } else {
            return static_cast<T>(int64Value());
        }
    }

    // By value, whatever the types: 1 equals 1.0 and true.
    friend bool operator==(const Number& a, const Number& b);

private:
    template <NumericType T>
    static constexpr Kind kindOf()
    {
        if constexpr (std::same_as<T, bool>) return Kind::boolean;
        if constexpr (std::same_as<T, float>) return Kind::float32;
        if constexpr (OneOf<T, double, CGFloat>) return Kind::float64;
        constexpr int step = sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 1 : sizeof(T) == 4 ? 2 : 3;
        return static_cast<Kind>(static_cast<int>(std::unsigned_integral<T> ? Kind::unsigned8 : Kind::signed8) + step);
    }

    static std::int64_t wholeOf(double value);
    static std::uint64_t unsignedOf(double value);

    union {
        std::int64_t whole;
        double real;
    } bits_{};
    Kind kind_;
};

}  // namespace Platform
