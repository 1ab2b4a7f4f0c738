#include <gtest/gtest.h>

#include "platform/session/internal/DesktopEntry.h"

using Platform::DesktopEntry;

TEST(DesktopEntry, TextsAndCommandsReadBackAsWritten)
{
    const std::vector<std::string> texts{"/a/b",    "/a b/c",   "/a\"b",      "/a'b",
                                         "/a\\b",   "/a\\\\nb", "/$HOME/`x`", "/100%/f",
                                         "/%%f %u", "/a\nb\tc", " /leading",  "/\xc3\xbc/\xe6\x97\xa5",
                                         "/a;b#c=d"};
    for (const auto& text : texts) {
        DesktopEntry entry;
        entry.set("Exec", Platform::execArgument(text) + " --later %u");
        EXPECT_EQ(Platform::execProgram(*DesktopEntry::parse(entry.text()).value("Exec")), text);
    }
    EXPECT_EQ(Platform::execArgument("/plain/path-1.0"), "/plain/path-1.0");
    EXPECT_EQ(Platform::execArgument("/a b"), "\"/a b\"");
    EXPECT_EQ(Platform::execArgument("$a"), "\"\\$a\"");
    for (const std::string damaged : {"", "   ", "\""}) EXPECT_EQ(Platform::execProgram(damaged), "");
}
