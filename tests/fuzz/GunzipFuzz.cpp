#include "Fennick/Data.h"
#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t cap = 1 << 20;
    const Platform::DataView input(data, size);
    const auto bytes = Fennick::gunzipped(input, cap);
    if (!bytes) return 0;
    require(bytes->size() <= cap, "nothing passes the cap");
    require(!Fennick::decompressed(input, cap) || (data[0] & 6) != 6, "no wrapped stream is a raw one of a bad block");
    require(Fennick::gunzipped(input, cap) == bytes, "an input has one result");
    return 0;
}
