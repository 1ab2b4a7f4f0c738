#include <gtest/gtest.h>

#include "platform/runtime/Utf8.h"

TEST(Utf8, TellsWellFormedTextAndRepairsTheRest)
{
    const std::string mark = "\xEF\xBF\xBD";
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
        {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF",
         "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF"},
        {"\xC0\xAF", mark + mark},                        // overlong slash
        {"\xED\xA0\x80", mark + mark + mark},             // surrogate
        {"\xF4\x90\x80\x80", mark + mark + mark + mark},  // past the last scalar
        {"x\xE2\x82", "x" + mark + mark},                 // cut short
        {"\x80y\xFFz", mark + "y" + mark + "z"},          // stray bytes
        {"\xC3(", mark + "("},
    };
    for (const auto& [text, repaired] : cases) {
        EXPECT_EQ(Platform::repairedUtf8(text), repaired);
        EXPECT_EQ(Platform::isUtf8(text), text == repaired);
    }
}
