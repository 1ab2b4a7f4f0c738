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
    EXPECT_EQ(textOf(gunzipped(bytesOf(gzipped))), "hello hello");
    EXPECT_EQ(textOf(gunzipped(bytesOf(zlibbed))), "hello hello");
    EXPECT_EQ(textOf(gunzipped(bytesOf(gzipped + "what follows"))), "hello hello");
    EXPECT_EQ(textOf(gunzipped(bytesOf(gzipped), 10)), "absent");
    EXPECT_EQ(textOf(gunzipped(bytesOf(gzipped.substr(0, gzipped.size() - 1)))), "absent");
    EXPECT_EQ(textOf(decompressed(bytesOf(zlibbed))), "absent");
    EXPECT_EQ(textOf(decompressed(bytesOf(zlibbed.substr(2)))), "hello hello");
    EXPECT_EQ(textOf(decompressed(*compressed(bytesOf("x")))), "x");
    EXPECT_EQ(textOf(decompressed(bytesOf("\x03\x00"s), 0)), "");
    std::string wrongSum = gzipped;
    wrongSum[20] ^= 1;
    EXPECT_EQ(textOf(gunzipped(bytesOf(wrongSum))), "absent");
    const std::string needsDictionary = "\x78\xbb\x1a\x0b\x04\x5d\xcb\x48"s;
    EXPECT_EQ(textOf(gunzipped(bytesOf(needsDictionary))), "absent");
    EXPECT_FALSE(compressed({}) || decompressed({}) || gunzipped({}));
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
