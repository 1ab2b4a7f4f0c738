#pragma once

#include <cstdint>

namespace Fennick {

// Unit sizes, each as a constant and as a property of the same number.
class Constants {
public:
    Constants() = delete;

    static constexpr std::int64_t bytesPerKibibyte = std::int64_t{1} << 10;
    static constexpr std::int64_t bytesPerMebibyte = std::int64_t{1} << 20;
    static constexpr std::int64_t bytesPerGibibyte = std::int64_t{1} << 30;
    static constexpr std::int64_t bytesPerTebibyte = std::int64_t{1} << 40;
    static constexpr std::int64_t bytesPerPebibyte = std::int64_t{1} << 50;
    static constexpr std::int64_t bytesPerExbibyte = std::int64_t{1} << 60;

    static constexpr std::int64_t unitsPerKilo = 1'000;
    static constexpr std::int64_t unitsPerMega = unitsPerKilo * 1'000;
    static constexpr std::int64_t unitsPerGiga = unitsPerMega * 1'000;
    static constexpr std::int64_t unitsPerTera = unitsPerGiga * 1'000;
    static constexpr std::int64_t unitsPerPeta = unitsPerTera * 1'000;
    static constexpr std::int64_t unitsPerExa = unitsPerPeta * 1'000;

    static constexpr std::int64_t kibibyte() { return bytesPerKibibyte; }
    static constexpr std::int64_t mebibyte() { return bytesPerMebibyte; }
    static constexpr std::int64_t gibibyte() { return bytesPerGibibyte; }
    static constexpr std::int64_t tebibyte() { return bytesPerTebibyte; }
    static constexpr std::int64_t pebibyte() { return bytesPerPebibyte; }
    static constexpr std::int64_t exbibyte() { return bytesPerExbibyte; }

    static constexpr std::int64_t kilo() { return unitsPerKilo; }
    static constexpr std::int64_t mega() { return unitsPerMega; }
    static constexpr std::int64_t giga() { return unitsPerGiga; }
    static constexpr std::int64_t tera() { return unitsPerTera; }
    static constexpr std::int64_t peta() { return unitsPerPeta; }
    static constexpr std::int64_t exa() { return unitsPerExa; }
};

}  // namespace Fennick
