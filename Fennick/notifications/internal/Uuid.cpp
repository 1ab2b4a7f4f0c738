#include "Fennick/notifications/internal/Uuid.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <random>

namespace Fennick {

std::string randomUuidText()
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::random_device random;
    std::array<std::uint32_t, 4> words{};
    for (auto& word : words) word = random();
    std::array<std::uint8_t, 16> bytes{};
    std::memcpy(bytes.data(), words.data(), bytes.size());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0f) | 0x40);  // version
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3f) | 0x80);  // variant
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text;
}

}  // namespace Fennick
