#pragma once

#include <cstddef>
#include <limits>
#include <optional>

#include "platform/runtime/Data.h"

namespace Platform {

inline constexpr std::size_t unlimitedSize = std::numeric_limits<std::size_t>::max();

// How a deflated stream is wrapped.
enum class Wrapper {
    none,        // raw DEFLATE, RFC 1951
    zlibOrGzip,  // RFC 1950 or RFC 1952, told apart by the first bytes
};

// The raw DEFLATE stream of the bytes, at zlib's default effort; absent for no
// bytes and when there is no memory. Any thread.
std::optional<Data> deflate(DataView bytes);

// The bytes that a stream unpacks to; what follows the end of the stream is
// not looked at. Absent for no bytes, for a damaged or cut stream, one that
// needs a preset dictionary, and one that unpacks to more than `cap` bytes: at
// most that much memory is then touched. Any thread.
std::optional<Data> inflate(DataView stream, Wrapper wrapper, std::size_t cap = unlimitedSize);

}  // namespace Platform
