#include <gtest/gtest.h>

#include "Fennick/Data.h"

using namespace Fennick;
using Platform::bytesOf;
using Platform::Data;
using namespace std::string_literals;

namespace {

std::string textOf(const std::optional<Data>& bytes)
{
    return bytes ? std::string(bytes->begin(), bytes->end()) : "absent";
}

// "hello hello" as others wrote it.
const std::string gzipped =
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\xcb\x48\xcd\xc9\xc9\x57\xc8\x00\x91\x00\x40\xa6\x2d\x01\x0b\x00\x00\x00"s;
const std::string zlibbed = "\x78\x9c\xcb\x48\xcd\xc9\xc9\x57\xc8\x00\x91\x00\x19\x91\x04\x49"s;

}  // namespace

TEST(DataCompression, ReadsWhatOthersWroteAndRefusesTheRest)
{
    std::string wrongSum = gzipped;
    wrongSum[20] ^= 1;
    for (const auto& stream : {gzipped, zlibbed, gzipped + "what follows"}) {
        EXPECT_EQ(textOf(gunzipped(bytesOf(stream))), "hello hello") << stream;
    }
    const std::string needsDictionary = "\x78\xbb\x1a\x0b\x04\x5d\xcb\x48"s;
    for (const auto& stream : {gzipped.substr(0, gzipped.size() - 1), wrongSum, needsDictionary, ""s}) {
        EXPECT_EQ(textOf(gunzipped(bytesOf(stream))), "absent") << stream;
    }
    EXPECT_EQ(textOf(gunzipped(bytesOf(gzipped), 10)), "absent");
    EXPECT_EQ(textOf(decompressed(bytesOf(zlibbed))), "absent");
    EXPECT_EQ(textOf(decompressed(bytesOf(zlibbed.substr(2)))), "hello hello");
    EXPECT_FALSE(compressed({}) || decompressed({}));
}

TEST(DataTexts, MatchTheKnownDigestsAndTheUrlAlphabet)
{
    EXPECT_EQ(md5({}), "d41d8cd98f00b204e9800998ecf8427e");
    const std::string message = std::string(80, '1').append("234567890");
    EXPECT_EQ(md5(bytesOf(message)), "c231ca3ae1b330a3b65f9a08aa51ea1d");
    for (const auto& [input, expected] :
         {std::pair("", ""), {"f", "Zg"}, {"fo", "Zm8"}, {"foobar\xff\xfe", "Zm9vYmFy__4"}, {"\xfb\xff", "-_8"}}) {
        EXPECT_EQ(base64URLString(bytesOf(input)), expected);
    }
}
