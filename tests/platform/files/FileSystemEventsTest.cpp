#include <filesystem>
#include <optional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

class FileSystemEventsTest : public testing::Test {
protected:
    Subscription watch(const FileDescriptor& opened, FileSystemEvents::Handler handler)
    {
        auto watched = FileSystemEvents::shared().watch(opened.get(), std::move(handler));
        EXPECT_TRUE(watched);
        return std::move(watched).value();
    }

    Tests::TemporaryDirectory folder;
    std::optional<Shared<FileSystemEvents>::Override> service{std::in_place};
    std::string path = folder.write("file", "a");
    FileDescriptor file{::open(path.c_str(), O_PATH)};
    FileDescriptor list{::open(folder.path().c_str(), O_PATH)};
};

TEST_F(FileSystemEventsTest, FollowAFileThroughItsNamesAndTheListOfAFolder)
{
    using enum FileEvents;
    FileEvents ofFile = none;
    FileEvents ofFolder = none;
    const Subscription first = watch(file, [&](FileEvents events) { ofFile = ofFile | events; });
    const Subscription second = watch(list, [&](FileEvents events) { ofFolder = ofFolder | events; });
    const struct {
        const char* what;
        std::function<void()> change;
        FileEvents ofFile;
        FileEvents ofFolder;
    } steps[] = {
        {"written", [&] { folder.write("file", "ab"); }, written, none},
        {"permissions", [&] { ::chmod(path.c_str(), 0600); }, attributes, none},
        {"renamed", [&] { std::filesystem::rename(path, folder / "other"); }, renamed, written},
        {"another of its name", [&] { folder.write("file", ""); }, none, written},
        {"removed while it is open", [&] { std::filesystem::remove(folder / "other"); }, attributes, written},
        {"closed", [&] { file.reset(); }, removed, none},
        {"permissions of the folder", [&] { ::chmod(folder.path().c_str(), 0711); }, none, attributes},
    };
    for (const auto& step : steps) {
        step.change();
        RunLoop::main().drain();
        EXPECT_EQ(std::exchange(ofFile, none), step.ofFile) << step.what;
        EXPECT_EQ(std::exchange(ofFolder, none), step.ofFolder) << step.what;
    }
}

TEST_F(FileSystemEventsTest, WatchEndsInsideItsOwnCallOrAfterTheServiceAndOthersGoOn)
{
    int calls = 0;
    int otherCalls = 0;
    Subscription first;
    Subscription third;
    first = watch(list, [&](FileEvents) {
        ++calls;
        first.cancel();
        third.cancel();
    });
    Subscription second = watch(list, [&](FileEvents) { ++otherCalls; });
    third = watch(list, [](FileEvents) { ADD_FAILURE() << "the first had ended it"; });
    for (const char* name : {"one", "two"}) {
        folder.write(name, "");
        RunLoop::main().drain();
    }
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(otherCalls, 2);
    const auto unwatched = FileSystemEvents::shared().watch(-1, [](FileEvents) {});
    ASSERT_FALSE(unwatched);
    EXPECT_EQ(unwatched.error().code, ENOENT);

    service.reset();
    second.cancel();
    second.cancel();
}

}  // namespace
}  // namespace Platform
