#include "Fennick/Version.h"
#include "tests/fuzz/Fuzz.h"

using Fennick::Version;

// The input is two texts with a newline between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view texts = textOf(data, size);
    const std::size_t end = texts.find('\n');
    const Version a(std::string(texts.substr(0, end)));
    const Version b(std::string(end == texts.npos ? "" : texts.substr(end + 1)));
    require(a == a && Version(a.string() + "z") > a, "a text comes before itself with a letter more");
    require((a < b) == (b > a), "before and after mirror each other");
    require((a < b) + (a == b) + (a > b) == 1, "exactly one of the three holds");
    return 0;
}
