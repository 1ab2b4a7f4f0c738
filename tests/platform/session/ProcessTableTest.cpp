#include <filesystem>

#include <gtest/gtest.h>

#include "platform/session/ProcessTable.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/TemporaryDirectory.h"

TEST(ProcessTable, NamesHaveUpToSixteenCharacters)
{
    const Tests::TemporaryDirectory folder;
    const Tests::ReplacedSystemRoots roots(folder.path());
    const auto add = [&](const std::string& process, const std::string& command, const std::string& program) {
        folder.write("proc/" + process + "/comm", command);
        if (!program.empty()) std::filesystem::create_symlink(program, folder / ("proc/" + process + "/exe"));
    };
    add("1", "init\n", "/sbin/init");
    add("20", "sixteen-charact\n", "/opt/sixteen-characte");
    add("21", "seventeen-chara\n", "/opt/seventeen-character (deleted)");
    add("22", "fifteen-letters\n", "/opt/fifteen-letters");
    add("23", "other-than-file\n", "/opt/program");
    add("24", "unreadable-prog\n", "");
    add("25", "two\nlines\n", "");
    add("26", "kworker/0:1H-kblockd\n", "");
    add("self", "self\n", "");
    add("0", "kernel\n", "");
    folder.makeFolder("proc/27");

    const Platform::ProcessTable table;
    for (const char* name : {"init", "sixteen-characte", "seventeen-charac", "fifteen-letters", "other-than-file",
                             "unreadable-prog", "two\nlines", "kworker/0:1H-kbl"}) {
        EXPECT_TRUE(table.contains(name)) << name;
    }
    for (const char* name : {"", "Init", "ini", "sixteen-charact", "sixteen-character", "seventeen-character", "self",
                             "kernel", "program", "two", "kworker/0:1H-kblockd"}) {
        EXPECT_FALSE(table.contains(name)) << name;
    }
    const Tests::ReplacedSystemRoots missing("/missing");
    EXPECT_FALSE(Platform::ProcessTable().contains("init"));
}

TEST(ProcessTable, FindsARealProcessByItsWholeSixteenCharacters)
{
    const Tests::TemporaryDirectory folder;
    const std::string program = folder / "sixteen-letters1";
    std::filesystem::copy_file(WAITING_APPLICATION, program);
    EXPECT_FALSE(Platform::ProcessTable::shared().contains("sixteen-letters1"));
    Tests::ChildProcess child({program});
    EXPECT_TRUE(Tests::eventually([] { return Platform::ProcessTable::shared().contains("sixteen-letters1"); }));
    child.kill();
    EXPECT_FALSE(Platform::ProcessTable::shared().contains("sixteen-letters1"));
}
