#include "Fennick/Data.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/compression/Digest.h"

namespace Fennick {

namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

// Twelve bits give two characters at one look-up.
using Pair = std::array<char, 2>;
constexpr std::array<Pair, 4096> characterPairs = [] {
    std::array<Pair, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) pairs[bits] = {alphabet[bits >> 6], alphabet[bits & 63]};
    return pairs;
}();

char* writePair(char* out, std::uint32_t bits)
{
    std::memcpy(out, characterPairs[bits & 4095].data(), 2);
    return out + 2;
}

char* writeRest(char* out, Platform::DataView rest)
{
    if (rest.empty()) return out;
    if (rest.size() == 1) return writePair(out, static_cast<std::uint32_t>(rest[0]) << 4);
    out = writePair(out, static_cast<std::uint32_t>(rest[0]) << 4 | rest[1] >> 4);
    *out++ = alphabet[(rest[1] & 15) << 2];
    return out;
}

}  // namespace

std::optional<Platform::Data> compressed(Platform::DataView bytes)
{
    return Platform::deflate(bytes);
}

std::optional<Platform::Data> decompressed(Platform::DataView stream, std::size_t cap)
{
    return Platform::inflate(stream, Platform::Wrapper::none, cap);
}

std::optional<Platform::Data> gunzipped(Platform::DataView stream, std::size_t cap)
{
    return Platform::inflate(stream, Platform::Wrapper::zlibOrGzip, cap);
}

std::string md5(Platform::DataView bytes)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : Platform::md5Digest(bytes)) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::string base64URLString(Platform::DataView bytes)
{
    std::string text((bytes.size() * 4 + 2) / 3, '\0');
    char* out = text.data();
    const std::size_t whole = bytes.size() / 3 * 3;
    for (std::size_t i = 0; i < whole; i += 3) {
        const std::uint32_t three = static_cast<std::uint32_t>(bytes[i]) << 16 | bytes[i + 1] << 8 | bytes[i + 2];
        out = writePair(out, three >> 12);
        out = writePair(out, three);
    }
    writeRest(out, bytes.subspan(whole));
    return text;
}

}  // namespace Fennick
