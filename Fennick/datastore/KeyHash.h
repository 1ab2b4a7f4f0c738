#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>
#include <type_traits>

namespace Fennick {

// Hashes of map keys for tables that use the low bits: every bit of the key
// reaches every bit of the hash. Not for storing and not against an adversary.
class KeyHash {
public:
    KeyHash() = delete;

    template <typename Key>
    static std::uint64_t of(const Key& key)
    {
        if constexpr (std::is_convertible_v<const Key&, std::string_view>) {
            return ofText(key);
        } else {
            return mixed(std::hash<Key>()(key) ^ seed, multiplier);
        }
    }

private:
    static constexpr std::uint64_t seed = 0x9E3779B97F4A7C15;
    static constexpr std::uint64_t multiplier = 0xD6E8FEB86659FD93;

    // Both halves of the product, folded together.
    static std::uint64_t mixed(std::uint64_t a, std::uint64_t b)
    {
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    }

    template <typename Word>
    static std::uint64_t load(const char* at)
    {
        Word loaded;
        std::memcpy(&loaded, at, sizeof loaded);
        return loaded;
    }

    static std::uint64_t word(const char* at) { return load<std::uint64_t>(at); }

    // Up to eight bytes by loads that overlap.
    static std::uint64_t shortWord(const char* at, std::size_t size)
    {
        if (size >= 4) return load<std::uint32_t>(at) << 32 | load<std::uint32_t>(at + size - 4);
        if (size == 0) return 0;
        const auto byte = [at](std::size_t index) { return std::uint64_t{static_cast<unsigned char>(at[index])}; };
        return byte(0) << 16 | byte(size / 2) << 8 | byte(size - 1);
    }

    // Sixteen bytes at a time; the last ones by loads that overlap.
    static std::uint64_t ofText(std::string_view text)
    {
        const char* at = text.data();
        const char* const end = at + text.size();
        std::uint64_t hash = seed ^ text.size();
        if (text.size() <= 8) return mixed(hash ^ shortWord(at, text.size()), multiplier);
        for (; end - at > 16; at += 16) hash = mixed(hash ^ word(at), multiplier ^ word(at + 8));
        const char* const last = text.size() < 16 ? text.data() : end - 16;
        return mixed(hash ^ word(last), multiplier ^ word(end - 8));
    }
};

}  // namespace Fennick
