#pragma once

#include <array>
#include <cstdint>

#include "platform/runtime/Data.h"

namespace Platform {

// The MD5 digest, RFC 1321. Good for telling contents apart, not against an attacker. Any thread.
std::array<std::uint8_t, 16> md5Digest(DataView bytes);

}  // namespace Platform
