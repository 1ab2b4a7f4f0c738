#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Platform {

// A number token of JSON, converted.
struct JsonNumber {
    enum class Kind { integer, unsignedInteger, real, tooLarge, malformed };

    Kind kind;
    union {
        std::int64_t integer;
        std::uint64_t unsignedInteger;
        double real;
    };

    // Without fraction, and of a value that fits a signed, else an unsigned,
    // word: an integer. Else the nearest double; tooLarge when that is infinite.
    // A byte that is no digit stands behind the token.
    static JsonNumber parse(std::string_view token);

    static JsonNumber ofInteger(std::int64_t value) { return {.kind = Kind::integer, .integer = value}; }
    static JsonNumber ofUnsigned(std::uint64_t value)
    {
        return {.kind = Kind::unsignedInteger, .unsignedInteger = value};
    }
    static JsonNumber ofReal(double value) { return {.kind = Kind::real, .real = value}; }
};

// The longest text that writeReal makes.
constexpr std::size_t maximumRealLength = 40;

// Writes the shortest text that reads back as the value, with a fraction in
// any case: "2.0", "1.5e-300". The value is finite. Returns the end.
char* writeReal(double value, char* to);
char* writeReal32(float value, char* to);

}  // namespace Platform
