#include "platform/compression/Digest.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace Platform {

namespace {

constexpr std::size_t blockSize = 64;
constexpr std::size_t lengthSize = 8;  // bits of the message, in the last bytes of the last block

struct State {
    std::uint32_t a = 0x67452301, b = 0xefcdab89, c = 0x98badcfe, d = 0x10325476;
};

// RFC 1321, section 3.4: the whole part of 2^32 |sin(step)|, with steps from 1, in radians.
constexpr std::array<std::uint32_t, 64> addends{
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};
// Of each round of 16 steps: how far its four kinds rotate, and which word of the block a step takes.
constexpr std::array<std::array<int, 4>, 4> rotations{
    {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}}};
constexpr std::array<int, 4> wordFactors{1, 5, 3, 7}, wordStarts{0, 1, 5, 0};

// The digest counts in words with the lowest byte first.
std::uint32_t littleEndian(std::uint32_t value)
{
    return std::endian::native == std::endian::little ? value : __builtin_bswap32(value);
}

std::uint32_t wordAt(const std::uint8_t* block, std::size_t word)
{
    std::uint32_t value = 0;
    std::memcpy(&value, block + word * sizeof value, sizeof value);
    return littleEndian(value);
}

// In the terms of the RFC F, G, H and I. G's two parts never share a bit, so
// that they may be added one after the other, the later known one last.
template <std::size_t number>
void step(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d, const std::uint8_t* block)
{
    constexpr std::size_t round = number / 16;
    constexpr std::size_t word = (wordFactors[round] * number + wordStarts[round]) % 16;
    a += wordAt(block, word) + addends[number];
    if constexpr (round == 0) a += d ^ (b & (c ^ d));
    if constexpr (round == 1) a += ~d & c;
    if constexpr (round == 1) a += d & b;
    if constexpr (round == 2) a += (c ^ d) ^ b;
    if constexpr (round == 3) a += c ^ (b | ~d);
    a = std::rotl(a, rotations[round][number % 4]) + b;
}

template <std::size_t... fours>
void takeBlock(State& state, const std::uint8_t* block, std::index_sequence<fours...>)
{
    const auto four = [block]<std::size_t first>(State& s, std::integral_constant<std::size_t, first>) {
        step<first>(s.a, s.b, s.c, s.d, block);
        step<first + 1>(s.d, s.a, s.b, s.c, block);
        step<first + 2>(s.c, s.d, s.a, s.b, block);
        step<first + 3>(s.b, s.c, s.d, s.a, block);
    };
    (four(state, std::integral_constant<std::size_t, 4 * fours>()), ...);
}

State takeBlocks(State state, DataView blocks)
{
    for (; !blocks.empty(); blocks = blocks.subspan(blockSize)) {
        State next = state;
        takeBlock(next, blocks.data(), std::make_index_sequence<16>());
        state = {state.a + next.a, state.b + next.b, state.c + next.c, state.d + next.d};
    }
    return state;
}

}  // namespace

std::array<std::uint8_t, 16> md5Digest(DataView bytes)
{
    const DataView whole = bytes.first(bytes.size() / blockSize * blockSize);
    const DataView rest = bytes.subspan(whole.size());
    std::array<std::uint8_t, 2 * blockSize> end{};
    std::ranges::copy(rest, end.begin());
    end[rest.size()] = 0x80;
    const std::size_t endSize = rest.size() + 1 + lengthSize <= blockSize ? blockSize : 2 * blockSize;
    std::uint64_t bits = static_cast<std::uint64_t>(bytes.size()) * 8;
    for (std::size_t at = endSize - lengthSize; at < endSize; ++at, bits >>= 8)
        end[at] = static_cast<std::uint8_t>(bits);

    const State state = takeBlocks(takeBlocks({}, whole), DataView(end).first(endSize));
    std::array<std::uint32_t, 4> words{state.a, state.b, state.c, state.d};
    std::ranges::transform(words, words.begin(), littleEndian);
    return std::bit_cast<std::array<std::uint8_t, 16>>(words);
}

}  // namespace Platform
