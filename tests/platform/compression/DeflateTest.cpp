#include <random>

#include <gtest/gtest.h>

#include "platform/compression/Deflate.h"

using namespace Platform;

namespace {

// So many random bytes of so many values: one that packs to nothing, a text's few, or all, which do not pack.
Data made(std::size_t size, unsigned values)
{
    std::mt19937 random(static_cast<unsigned>(size));
    Data bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % values);
    return bytes;
}

}  // namespace

TEST(Deflate, ComesBackWholeAtEverySizeAroundAChunkAndUpToItsCap)
{
    for (const std::size_t size : {1, 64, 65, 65'535, 65'536, 65'537, 400'001, 5'000'000}) {
        for (const unsigned values : {1U, 13U, 256U}) {
            const Data bytes = made(size, values);
            const auto stream = deflate(bytes);
            ASSERT_TRUE(stream) << size;
            EXPECT_EQ(inflate(*stream, Wrapper::none, size), bytes) << size;
            EXPECT_FALSE(inflate(*stream, Wrapper::none, size - 1)) << size;
        }
    }
}

TEST(Inflate, AnswersAbsenceForEveryCutAndForDamage)
{
    const Data stream = *deflate(made(3'000, 13));
    for (std::size_t length = 0; length < stream.size(); ++length) {
        EXPECT_FALSE(inflate(DataView(stream).first(length), Wrapper::none)) << length;
    }
    Data damaged = stream;
    damaged[0] |= 7;  // a block of the reserved kind
    EXPECT_FALSE(inflate(damaged, Wrapper::none));
    EXPECT_FALSE(inflate(stream, Wrapper::zlibOrGzip));
}
