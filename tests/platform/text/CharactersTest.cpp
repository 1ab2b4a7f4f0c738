#include <gtest/gtest.h>

#include "platform/text/Characters.h"

namespace {

TEST(Characters, AreWhatAReaderCountsAndBecomeCapitalsInEveryScript)
{
    const struct {
        const char *text, *upper;
        std::size_t count;
    } cases[] = {
        {"", "", 0},
        {"straße", "STRASSE", 6},
        {"ﬁ", "FI", 1},
        {"e\u0301", "E\u0301", 1},
        {"\r\n", "\r\n", 1},
        {"?\u20DD", "?\u20DD", 1},
        {"👩‍👩‍👧‍👦", "👩‍👩‍👧‍👦", 1},
        {"ж⎵", "Ж⎵", 2},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(Platform::uppercased(one.text), one.upper) << one.text;
        EXPECT_EQ(Platform::characterCount(one.text), one.count) << one.text;
    }
    EXPECT_EQ(Platform::characterCount("a\xFFz"), 3U);
}

}  // namespace
