#include <atomic>
#include <filesystem>
#include <numeric>
#include <set>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Lorrel/files/Path.h"
#include "platform/runtime/FileDescriptor.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeFileManager.h"
#include "tests/support/ResourceLimit.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Platform::Url;

class PathListingsTest : public testing::Test {
protected:
    Url at(std::string_view name) const { return Url::fromPath(folder / name); }

    // The locations' paths below the folder, folders with a slash, in order of name.
    std::string names(const std::vector<Url>& locations) const
    {
        std::multiset<std::string> found;
        for (const Url& location : locations) {
            const std::string path = location.path().substr(folder.path().size() + 1);
            found.insert(path + (location.hasDirectoryPath() ? "/ " : " "));
        }
        return std::accumulate(found.begin(), found.end(), std::string());
    }

    void makeTree() const
    {
        for (const auto* file : {"a.txt", ".hidden", "sub/b.txt", "sub/.git/config", "sub/deep/c.md",
                                 "App.app/inner.txt", "App.app/Contents/d.txt", "sub/Tool.Bundle/e.txt"}) {
            folder.write(file, "12345");
        }
        std::filesystem::create_directory_symlink(folder / "sub", folder / "link");
        std::filesystem::create_symlink("nowhere", folder / "sub/broken");
    }

    Tests::TemporaryDirectory folder;
};

TEST_F(PathListingsTest, EachListingKeepsItsKindOfEntries)
{
    makeTree();
    const Url root = folder.url();
    const struct {
        const char* what;
        std::vector<Url> listed;
        const char* expected;
    } rows[] = {
        {"items", Path::items(root),
         "App.app/ a.txt link sub/ sub/Tool.Bundle/ sub/b.txt sub/broken sub/deep/ sub/deep/c.md "},
        {"files", Path::files(root), "a.txt link sub/b.txt sub/broken sub/deep/c.md "},
        {"files by suffix", Path::files(root, ".txt"),
         "App.app/Contents/d.txt App.app/inner.txt a.txt sub/Tool.Bundle/e.txt sub/b.txt "},
        {"folders by suffix", Path::directories(root, "p"), "App.app/ sub/deep/ "},
        {"folders directly", Path::contents(root, true), "App.app/ sub/ "},
        {"files directly", Path::contents(root, false), "a.txt link "},
        {"inside a package", Path::items(at("App.app")), "App.app/Contents/ App.app/Contents/d.txt App.app/inner.txt "},
        {"through a link", Path::contents(at("link"), true), "link/Tool.Bundle/ link/deep/ "},
        {"subfolders", Path::subfolders(root), "App.app/ sub/ sub/Tool.Bundle/ sub/deep/ "},
        {"a file", Path::items(at("a.txt")), ""},
        {"nothing", Path::subfolders(at("missing")), ""},
    };
    for (const auto& row : rows) EXPECT_EQ(names(row.listed), row.expected) << row.what;
}

TEST_F(PathListingsTest, FailureToListOrToTellAKindIsPrintedAsOneLine)
{
    folder.makeFolder("one/two/three");
    Tests::ReplacedFileManager files;
    files->hideKind(folder / "one/two", EIO);
    testing::internal::CaptureStdout();
    EXPECT_EQ(names(Path::subfolders(folder.url())), "one/ ") << "the walk ends there";
    EXPECT_TRUE(Path::contents(at("missing"), true).empty());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "stat " + (folder / "one/two") + ": Input/output error\nopen " +
                                                          (folder / "missing") + ": No such file or directory\n");
}

TEST_F(PathListingsTest, NestedCountLeavesOutTheTopAndLinksThatLoop)
{
    for (const auto* name : {"a/b/c", "a/d", ".f/g"}) folder.makeFolder(name);
    std::filesystem::create_directory_symlink(folder.path(), folder / "a/up");
    std::filesystem::create_symlink("self", folder / "self");
    EXPECT_EQ(Path::nestedCount(folder.url(), true), 3);
    EXPECT_EQ(names(Path::items(folder.url())), "a/ a/b/ a/b/c/ a/d/ a/up self ");
    EXPECT_FALSE(Path::exists(folder / "self"));
}

TEST_F(PathListingsTest, LibraryOfTheAccountAndContainersOfTheSystemAreLeftOutOnRequest)
{
    Tests::ReplacedEnvironment environment("/Users/alice/Library/Containers/com.example.app/Data");
    for (const auto* name : {"com.apple.mail", "com.apple", "org.example.app"}) {
        folder.makeFolder("Library/Containers/" + std::string(name));
    }
    folder.makeFolder("Other/Library");
    Tests::ReplacedFileManager files;
    files->graft("/Users/alice", folder.path());
    const Url home = Url::fromPath("/Users/alice", true);
    EXPECT_EQ(Path::contents(home, true, false).size(), 2u);
    EXPECT_EQ(Path::contents(home, true, true).size(), 1u);
    EXPECT_EQ(Path::subfolders(home, false).size(), 7u);
    EXPECT_EQ(Path::subfolders(home, true).size(), 2u);
    EXPECT_EQ(Path::nestedCount(home, true), 1);
    EXPECT_EQ(Path::containers(false).size(), 3u);
    EXPECT_EQ(Path::containers(true).size(), 2u);
}

TEST_F(PathListingsTest, SizeCountsEveryEntryThatIsNoFolder)
{
    makeTree();
    // Eight files of five bytes, two links of the length of their targets.
    const std::uint64_t links = (folder / "sub").size() + std::string("nowhere").size();
    EXPECT_EQ(Path::size(at("a.txt")), 0u);
    EXPECT_EQ(Path::size(at("missing")), 0u);
    EXPECT_EQ(Path::fileSize(at("a.txt")), 5u);
    EXPECT_EQ(Path::fileSize(at("sub")), 0u);
    folder.write("sparse", "");
    std::filesystem::resize_file(folder / "sparse", 5'000'000'000'000);
    EXPECT_EQ(Path::size(folder.url()), 8 * 5 + links + 5'000'000'000'000u);
}

TEST_F(PathListingsTest, DepthBeyondTheLongestPathIsNoObstacle)
{
    const std::string name(100, 'd');
    constexpr int levels = 200;
    int parent = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdirat(parent, name.c_str(), 0700), 0);
        const int next = ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY);
        ::close(std::exchange(parent, next));
    }
    ::close(::openat(parent, "bottom", O_CREAT | O_WRONLY, 0600));
    ::symlinkat("123", parent, "link");
    ::close(parent);
    EXPECT_EQ(Path::subfolders(folder.url()).size(), static_cast<std::size_t>(levels));
    EXPECT_EQ(Path::files(folder.url(), "bottom").size(), 1u);
    EXPECT_EQ(Path::size(folder.url()), 3u);
    const Tests::ResourceLimit noneForEachLevel(RLIMIT_NOFILE, 64);
    EXPECT_TRUE(Path::remove(at(name)));
}

TEST_F(PathListingsTest, NamesAreBytesInAnyEncoding)
{
    const std::string file = folder.write("caf\xe9\n\x01.txt", "abc");
    const auto found = Path::files(folder.url(), ".txt");
    ASSERT_EQ(found, std::vector{Url::fromPath(file)});
    EXPECT_EQ(Path::fileSize(found.front()), 3u);
    EXPECT_TRUE(Path::remove(found.front()));
}

TEST_F(PathListingsTest, FoldersThatComeAndGoDuringWalksHarmNothing)
{
    for (int i = 0; i < 50; ++i) folder.write("keep" + std::to_string(i) + "/file", "1");
    std::atomic<bool> isOver = false;
    std::thread mover([&] {
        for (int i = 0; !isOver; ++i) {
            const std::string name = "moving" + std::to_string(i % 7);
            folder.write(name + "/deep/file", "1");
            std::filesystem::remove_all(folder / name);
        }
    });
    for (int i = 0; i < 60; ++i) {
        EXPECT_GE(Path::files(folder.url()).size(), 50u);
        EXPECT_GE(Path::size(folder.url()), 50u);
    }
    isOver = true;
    mover.join();
    for (int i = 0; i < 3000; ++i) folder.write("many/" + std::to_string(i), "1");
    EXPECT_EQ(Path::files(folder.url()).size(), 3050u);
    EXPECT_EQ(Path::size(folder.url()), 3050u);
}

TEST_F(PathListingsTest, UnreadableFolderIsAnEntryWithoutInsides)
{
    folder.write("locked/file", "12345");
    folder.write("open/file", "12345");
    ASSERT_EQ(::chmod((folder / "locked").c_str(), 0), 0);
    ::chmod(folder.path().c_str(), 0755);
    const auto listAsNobody = [&] {
        if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0) ::_exit(2);
        const bool isRight =
            names(Path::items(folder.url())) == "locked/ open/ open/file " && Path::size(folder.url()) == 5;
        ::_exit(isRight ? 0 : 1);
    };
    EXPECT_EXIT(listAsNobody(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace Lorrel
