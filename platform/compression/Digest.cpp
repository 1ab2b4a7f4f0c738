// The context calls work in every mode of the library and cost no look-up of
// the algorithm, which is most of the time of a short message.
#define OPENSSL_SUPPRESS_DEPRECATED

#include "platform/compression/Digest.h"

#include <openssl/md5.h>

namespace Platform {

std::array<std::uint8_t, 16> md5Digest(DataView bytes)
{
    std::array<std::uint8_t, MD5_DIGEST_LENGTH> digest{};
    MD5_CTX context;
    MD5_Init(&context);
    MD5_Update(&context, bytes.data(), bytes.size());
    MD5_Final(digest.data(), &context);
    return digest;
}

}  // namespace Platform
