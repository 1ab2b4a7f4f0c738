// Compression and hashing beside one plain call of the libraries below, into a
// buffer that is made new each time, as a caller needs one, and exactly large enough.
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <openssl/evp.h>
#include <zlib.h>

#include "Fennick/Data.h"
#include "benchmarks/Interleaved.h"

namespace {

using Platform::Data;

Data prose(std::size_t size)
{
    std::mt19937 random(3);
    std::vector<std::string> words(2'000);
    for (auto& word : words) {
        for (std::size_t i = 2 + random() % 8; i > 0; --i) word += static_cast<char>('a' + random() % 26);
    }
    Data bytes;
    while (bytes.size() < size) {
        const std::string& word = words[std::min(random() % 2'000, random() % 2'000)];
        bytes.insert(bytes.end(), word.begin(), word.end());
        bytes.push_back(' ');
    }
    bytes.resize(size);
    return bytes;
}

using Buffer = std::unique_ptr<Bytef[]>;

Buffer fresh(std::size_t size)
{
    return Buffer(new Bytef[size]);  // not cleared
}

void deflateOnce(const Data& bytes, std::size_t exact)
{
    const Buffer out = fresh(exact);
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = const_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = out.get();
    stream.avail_out = static_cast<uInt>(exact);
    Bench::keep(deflate(&stream, Z_FINISH));
    deflateEnd(&stream);
}

void inflateOnce(const Data& packed, std::size_t exact, int windowBits)
{
    const Buffer out = fresh(exact);
    z_stream stream{};
    inflateInit2(&stream, windowBits);
    stream.next_in = const_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = out.get();
    stream.avail_out = static_cast<uInt>(exact);
    Bench::keep(inflate(&stream, Z_FINISH));
    inflateEnd(&stream);
}

void compression(std::size_t size)
{
    const Data bytes = prose(size);
    const Data packed = *Fennick::compressed(bytes);
    Data wrapped(compressBound(size));
    uLongf length = wrapped.size();
    compress2(wrapped.data(), &length, bytes.data(), size, Z_DEFAULT_COMPRESSION);
    wrapped.resize(length);
    const std::string of = " of " + std::to_string(size) + " bytes";
    Bench::compare("compressed" + of,
                   {{"Fennick", [&] { Bench::keep(Fennick::compressed(bytes)->size()); }},
                    {"zlib in one call", [&] { deflateOnce(bytes, packed.size()); }}},
                   size > 1'000'000 ? 7 : 31);
    Bench::compare("decompressed" + of,
                   {{"Fennick", [&] { Bench::keep(Fennick::decompressed(packed)->size()); }},
                    {"zlib in one call", [&] { inflateOnce(packed, size, -15); }}},
                   21);
    Bench::compare("gunzipped" + of,
                   {{"Fennick", [&] { Bench::keep(Fennick::gunzipped(wrapped)->size()); }},
                    {"zlib in one call", [&] { inflateOnce(wrapped, size, 47); }}},
                   21);
}

void hashing(std::size_t size)
{
    const Data bytes = prose(size);
    const std::string of = " of " + std::to_string(size) + " bytes";
    Bench::compare("md5" + of, {{"Fennick", [&] { Bench::keep(Fennick::md5(bytes)); }},
                                {"OpenSSL one-shot", [&] {
                                     unsigned char digest[16];
                                     unsigned int length = 0;
                                     EVP_Digest(bytes.data(), size, digest, &length, EVP_md5(), nullptr);
                                     Bench::keep(digest);
                                 }}});
    Bench::compare("base64url" + of, {{"Fennick", [&] { Bench::keep(Fennick::base64URLString(bytes)); }},
                                      {"OpenSSL base64", [&] {
                                           std::string text((size + 2) / 3 * 4 + 1, '\0');
                                           auto* out = reinterpret_cast<unsigned char*>(text.data());
                                           EVP_EncodeBlock(out, bytes.data(), static_cast<int>(size));
                                           Bench::keep(text);
                                       }}});
}

// What the text's length costs.
void growth()
{
    for (const std::size_t size : {100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000}) {
        const Data bytes = prose(size);
        const Data packed = *Fennick::compressed(bytes);
        Bench::curve("compression by bytes", static_cast<double>(size),
                     {{"compressed", [&] { Bench::keep(Fennick::compressed(bytes)->size()); }},
                      {"decompressed", [&] { Bench::keep(Fennick::decompressed(packed)->size()); }},
                      {"md5", [&] { Bench::keep(Fennick::md5(bytes)); }},
                      {"base64url", [&] { Bench::keep(Fennick::base64URLString(bytes)); }}});
    }
}

}  // namespace

int main()
{
    growth();
    for (const std::size_t size : {1'000, 100'000, 8'000'000}) compression(size);
    for (const std::size_t size : {32, 1'000'000}) hashing(size);
}
