#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/session/internal/DesktopEntry.h"

using Platform::DesktopEntry;

TEST(DesktopEntry, KeepsEveryLineThatItDoesNotChange)
{
    const std::string text =
        "# by hand\n\n[Desktop Entry]\nName = Mine\nName[de]=Meins\nExec=old\nX-Other=a=b\n\n[Desktop Action "
        "x]\nExec=y\n";
    DesktopEntry entry = DesktopEntry::parse(text);
    EXPECT_EQ(entry.text(), text);
    EXPECT_EQ(entry.value("Name"), "Mine");
    EXPECT_EQ(entry.value("X-Other"), "a=b");
    EXPECT_EQ(entry.value("Nothing"), std::nullopt);

    entry.set("Exec", "new");
    entry.set("Hidden", "true");
    entry.remove("X-Other");
    EXPECT_EQ(entry.text(),
              "# by hand\n\n[Desktop Entry]\nName = Mine\nName[de]=Meins\nExec=new\nHidden=true\n\n"
              "[Desktop Action x]\nExec=y\n");
}

TEST(DesktopEntry, AnEmptyOrForeignFileGetsTheGroup)
{
    for (const std::string before : {"", "# nothing\n", "[Other]\nExec=a\n"}) {
        DesktopEntry entry = DesktopEntry::parse(before);
        entry.set("Type", "Application");
        entry.set("Exec", "b");
        EXPECT_EQ(entry.text(), before + "[Desktop Entry]\nType=Application\nExec=b\n");
        EXPECT_EQ(DesktopEntry::parse(entry.text()).value("Exec"), "b");
    }
}

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
