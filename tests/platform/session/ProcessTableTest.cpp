#include <filesystem>

#include <gtest/gtest.h>

#include "platform/session/ProcessTable.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/TemporaryDirectory.h"

TEST(ProcessTable, NamesHaveUpToSixteenCharacters)
{
    const Tests::TemporaryDirectory folder;
    const Tests::ReplacedSystemRoots roots(folder.path());
    const struct {
        const char *process, *command, *program;  // the last is empty where it cannot be read
        std::vector<const char*> found, missed;
    } rows[] = {
        {"1", "init\n", "/sbin/init", {"init"}, {"", "Init", "ini"}},
        {"20", "sixteen-charact\n", "/opt/sixteen-characte", {"sixteen-characte"}, {"sixteen-charact"}},
        {"21",
         "seventeen-chara\n",
         "/opt/seventeen-character (deleted)",
         {"seventeen-charac"},
         {"seventeen-character"}},
        {"22", "fifteen-letters\n", "/opt/fifteen-letters", {"fifteen-letters"}, {}},
        {"23", "other-than-file\n", "/opt/program", {"other-than-file"}, {"program"}},
        {"25", "two\nlines\n", "", {"two\nlines"}, {"two"}},
        {"26", "kworker/0:1H-kblockd\n", "", {"kworker/0:1H-kbl"}, {"kworker/0:1H-kblockd"}},
    };
    for (const auto& row : rows) {
        const std::string process = std::string("proc/") + row.process;
        folder.write(process + "/comm", row.command);
        if (*row.program) std::filesystem::create_symlink(row.program, folder / (process + "/exe"));
    }
    folder.makeFolder("proc/27");
    const Platform::ProcessTable table;
    for (const auto& row : rows) {
        for (const char* name : row.found) EXPECT_TRUE(table.contains(name)) << name;
        for (const char* name : row.missed) EXPECT_FALSE(table.contains(name)) << name;
    }
}
