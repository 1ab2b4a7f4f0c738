#include "Fennick/Data.h"
#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t cap = 1 << 20;
    const Platform::DataView input(data, size);
    for (const auto unpacked : {Fennick::decompressed, Fennick::gunzipped}) {
        const auto bytes = unpacked(input, cap);
        if (!bytes || bytes->empty()) continue;
        require(bytes->size() <= cap, "nothing passes the cap");
        require(unpacked(input, bytes->size()) == bytes, "a result fits its own size as cap");
        require(!unpacked(input, bytes->size() - 1), "and no smaller one");
    }
    const auto packed = Fennick::compressed(input);
    require(packed.has_value() == (size > 0), "all but nothing can be packed");
    if (packed) require(Fennick::decompressed(*packed) == Platform::Data(data, data + size), "and comes back whole");
    return 0;
}
