#include <string>

#include <gtest/gtest.h>

#include "platform/runtime/Utf8.h"

TEST(Utf8, TellsWellFormedTextAndRepairsTheRest)
{
    struct Case {
        std::string text;
        std::string repaired;
    };
    const std::string mark = "\xEF\xBF\xBD";
    const Case cases[] = {
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
    for (const Case& item : cases) {
        EXPECT_EQ(Platform::repairedUtf8(item.text), item.repaired);
        EXPECT_EQ(Platform::isUtf8(item.text), item.text == item.repaired);
    }
}
