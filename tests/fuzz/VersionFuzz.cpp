#include <algorithm>

#include "Fennick/Version.h"
#include "tests/fuzz/Fuzz.h"

using Fennick::Version;

// The input is three texts between newlines.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string texts[3];
    std::size_t which = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == '\n' && which < 2) {
            ++which;
        } else {
            texts[which] += static_cast<char>(data[i]);
        }
    }
    Version versions[3] = {Version(texts[0]), Version(texts[1]), Version(texts[2])};
    for (const Version& a : versions) {
        require(a == a && Version(a.string() + "z") > a,
                "a text equals itself and comes before itself with a letter more");
        for (const Version& b : versions) {
            require((a < b) == (b > a), "before and after mirror each other");
            require((a < b) + (a == b) + (a > b) == 1, "exactly one of the three holds");
            require((a <= b) == !(b < a) && (a >= b) == !(a < b), "the weak ones are negations");
        }
    }
    if (versions[0] > versions[1]) std::swap(versions[0], versions[1]);
    if (versions[1] > versions[2]) std::swap(versions[1], versions[2]);
    if (versions[0] > versions[1]) std::swap(versions[0], versions[1]);
    require(versions[0] <= versions[2], "the order has no cycle");
    return 0;
}
