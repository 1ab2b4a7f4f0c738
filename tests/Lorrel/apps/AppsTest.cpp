#include <gtest/gtest.h>

#include "Lorrel/apps/Apps.h"
#include "platform/session/ProcessTable.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/TemporaryDirectory.h"

using Lorrel::Apps;

TEST(Apps, RunningMeansExactlyTheSameIdentifier)
{
    Tests::ReplacedWorkspace workspace;
    workspace->start(workspace->install("/Applications/Nameless.app", std::nullopt).path());
    workspace->run("org.example.Editor");
    EXPECT_TRUE(Apps::isRunning("org.example.Editor"));
    for (const char* other : {"", "org.example.editor", "org.example", "org.example.Editor2"}) {
        EXPECT_FALSE(Apps::isRunning(other)) << other;
    }
}

TEST(Apps, OnlyTheFirstOfTwoIsAskedToQuit)
{
    Tests::ReplacedWorkspace workspace;
    const auto first = workspace->run("org.example.twice");
    workspace->run("org.example.twice");
    EXPECT_TRUE(Apps::terminate("org.example.twice"));
    EXPECT_EQ(workspace->askedToQuit(), std::vector{first});
    EXPECT_TRUE(Apps::isRunning("org.example.twice"));
    EXPECT_FALSE(Apps::terminate("org.example.missing"));
}

TEST(Apps, OpensAFolderLocationAndKeepsRefusalsToTheLog)
{
    Tests::ReplacedWorkspace workspace;
    Tests::Replaced<Platform::Log, Tests::CapturingLog> log;
    workspace->install("/Applications/A b.app", "org.example.a");
    Apps::open("/Applications/A b.app");
    EXPECT_TRUE(Apps::isRunning("org.example.a"));
    EXPECT_TRUE(workspace->openRequests().front().hasDirectoryPath());
    EXPECT_TRUE(log->messages().empty());
    Apps::open("/missing");
    EXPECT_EQ(log->messages().size(), 1U);
}

TEST(Apps, ProcessNamesComeFromTheProcessTable)
{
    const Tests::TemporaryDirectory folder;
    const Tests::ReplacedSystemRoots roots(folder.path());
    const Platform::Shared<Platform::ProcessTable>::Override fresh;
    folder.write("proc/7/comm", "daemon\n");
    EXPECT_TRUE(Apps::isProcessRunning("daemon"));
    EXPECT_FALSE(Apps::isProcessRunning("Daemon"));
}
