#include <cerrno>

#include <gtest/gtest.h>

#include "Lorrel/apps/Apps.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeWorkspace.h"

using Lorrel::Apps;

TEST(Apps, OpensAndAsksTheFirstOfSeveralToQuit)
{
    Tests::ReplacedWorkspace workspace;
    const Tests::ReplacedLog log;
    workspace->install("/Applications/A b.app", "org.example.a");
    Apps::open("/Applications/A b.app");
    EXPECT_TRUE(workspace->openRequests().front().hasDirectoryPath());
    EXPECT_TRUE(Apps::isRunning("org.example.a"));
    EXPECT_FALSE(Apps::isRunning("org.example.A"));
    EXPECT_TRUE(log->messages().empty());
    Apps::open("/missing");
    EXPECT_EQ(log->messages().size(), 1U);

    const auto first = workspace->runningApplications().front();
    workspace->start("/Applications/A b.app");
    EXPECT_TRUE(Apps::terminate("org.example.a"));
    EXPECT_EQ(workspace->askedToQuit(), std::vector{first});
    EXPECT_TRUE(Apps::isRunning("org.example.a"));
    EXPECT_FALSE(Apps::terminate("org.example.missing"));
}

TEST(Apps, KnowThisProcessByTheFirstSixteenCharactersOfItsName)
{
    const std::string name = program_invocation_short_name;
    ASSERT_GT(name.size(), 16U);
    EXPECT_TRUE(Apps::isProcessRunning(name.substr(0, 16)));
    for (const auto& other : {name, name.substr(0, 15)}) EXPECT_FALSE(Apps::isProcessRunning(other)) << other;
}
