#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/compression/Deflate.h"
#include "platform/runtime/Data.h"

// Operations on byte buffers. None changes its input; a failure is absence
// without detail. Any thread.
namespace Fennick {

// Raw DEFLATE (RFC 1951). Absent for no bytes.
std::optional<Platform::Data> compressed(Platform::DataView bytes);

// What a raw DEFLATE stream unpacks to. Absent for no bytes, a damaged, cut or
// wrapped stream, and for more than `cap` bytes.
std::optional<Platform::Data> decompressed(Platform::DataView stream, std::size_t cap = Platform::unlimitedSize);

// The same for a zlib or gzip stream, told apart by its first bytes. Of a gzip
// file of several members the first is read.
std::optional<Platform::Data> gunzipped(Platform::DataView stream, std::size_t cap = Platform::unlimitedSize);

// The MD5 digest in 32 lower-case hexadecimal digits.
std::string md5(Platform::DataView bytes);

// Base64 in the URL alphabet without padding (RFC 4648 section 5).
std::string base64URLString(Platform::DataView bytes);

}  // namespace Fennick
