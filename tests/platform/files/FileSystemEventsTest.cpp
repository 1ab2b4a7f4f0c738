#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

class FileSystemEventsTest : public testing::Test {
protected:
    Subscription watch(const std::string& path, FileSystemEvents::Handler handler)
    {
        opened.emplace_back(::open(path.c_str(), O_PATH));
        auto watched = FileSystemEvents::shared().watch(opened.back().get(), std::move(handler));
        EXPECT_TRUE(watched);
        return std::move(watched).value();
    }
    Subscription gather(const std::string& path)
    {
        return watch(path, [this](FileEvents events) { seen.push_back(events); });
    }
    // What one delivery told; the events must have come as one.
    FileEvents delivered()
    {
        RunLoop::main().drain();
        EXPECT_LE(seen.size(), 1u);
        return seen.empty() ? FileEvents::none : std::exchange(seen, {}).front();
    }

    Tests::TemporaryDirectory folder;
    Shared<FileSystemEvents>::Override fresh;
    std::vector<FileDescriptor> opened;
    std::vector<FileEvents> seen;
};

TEST_F(FileSystemEventsTest, FileIsFollowedThroughItsNames)
{
    const std::string path = folder.write("file", "a");
    const Subscription watched = gather(path);
    folder.write("file", "ab");
    EXPECT_EQ(delivered(), FileEvents::written);
    ::chmod(path.c_str(), 0600);
    EXPECT_EQ(delivered(), FileEvents::attributes);
    std::filesystem::rename(path, folder / "other");
    EXPECT_EQ(delivered(), FileEvents::renamed);
    folder.write("file", "another one of the old name");
    EXPECT_EQ(delivered(), FileEvents::none);
    folder.write("other", "abc");
    std::filesystem::remove(folder / "other");
    EXPECT_EQ(delivered(), FileEvents::written | FileEvents::attributes);
    opened.clear();
    EXPECT_TRUE(contains(delivered(), FileEvents::removed));
}

TEST_F(FileSystemEventsTest, FolderTellsOfItsListAndItselfOnly)
{
    const std::string file = folder.write("file", "a");
    const Subscription watched = gather(folder.path());
    folder.write("file", "changed");
    ::chmod(file.c_str(), 0600);
    EXPECT_EQ(delivered(), FileEvents::none);
    folder.write("new", "");
    std::filesystem::rename(folder / "new", folder / "newer");
    std::filesystem::remove(folder / "newer");
    EXPECT_EQ(delivered(), FileEvents::written);
    ::chmod(folder.path().c_str(), 0711);
    EXPECT_EQ(delivered(), FileEvents::attributes);
}

TEST_F(FileSystemEventsTest, WatchEndsInsideItsOwnCallAndOthersGoOn)
{
    const std::string path = folder.write("file", "a");
    Subscription first;
    int firstCalls = 0;
    first = watch(path, [&](FileEvents) {
        ++firstCalls;
        first.cancel();
    });
    const Subscription second = gather(path);
    folder.write("file", "b");
    RunLoop::main().drain();
    folder.write("file", "c");
    RunLoop::main().drain();
    EXPECT_EQ(firstCalls, 1);
    EXPECT_GE(seen.size(), 2u);
}

TEST_F(FileSystemEventsTest, SubscriptionOutlivesTheService)
{
    Subscription watched = gather(folder.path());
    {
        const Shared<FileSystemEvents>::Override other;
    }
    watched.cancel();
    watched.cancel();
}

TEST_F(FileSystemEventsTest, WhatCannotBeWatchedIsAnErrorWithItsReason)
{
    const auto watched = FileSystemEvents::shared().watch(-1, [](FileEvents) {});
    ASSERT_FALSE(watched);
    EXPECT_EQ(watched.error().call, "inotify_add_watch");
    EXPECT_EQ(watched.error().code, ENOENT);
}

}  // namespace
}  // namespace Platform
