#include <filesystem>

#include <gtest/gtest.h>

#include "Lorrel/files/Directory.h"
#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeIconService.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Platform::Url;

TEST(Path, KindFollowsLinks)
{
    const Tests::TemporaryDirectory folder;
    folder.write("file", "");
    folder.makeFolder("sub");
    std::filesystem::create_symlink(folder / "sub", folder / "link");
    std::filesystem::create_symlink("missing", folder / "broken");
    const std::pair<const char*, PathType> rows[] = {{"file", PathType::file},
                                                     {"sub", PathType::directory},
                                                     {"link", PathType::directory},
                                                     {"broken", PathType::invalid},
                                                     {"file/below", PathType::invalid}};
    for (const auto& [name, type] : rows) {
        EXPECT_EQ(Path::type(folder / name), type) << name;
        EXPECT_EQ(Path::exists(folder / name), type != PathType::invalid) << name;
        EXPECT_EQ(Path::isDirectory(folder / name), type == PathType::directory) << name;
    }
}

TEST(Path, RemovalTakesFoldersWholeAndLinksAlone)
{
    const Tests::TemporaryDirectory folder;
    folder.write("tree/deep/file", "");
    folder.write("kept/file", "");
    std::filesystem::create_directory_symlink(folder / "kept", folder / "link");
    EXPECT_TRUE(Path::remove(Url::fromPath(folder / "tree")));
    EXPECT_TRUE(Path::remove(Url::fromPath(folder / "link")));
    EXPECT_FALSE(Path::exists(folder / std::string("kept\0x", 6)));
    EXPECT_TRUE(Path::remove(Url::fromPath(folder / std::string("kept\0x", 6)))) << "no part of a name is the name";
    EXPECT_TRUE(Path::exists(folder / "kept/file"));
    testing::internal::CaptureStdout();
    EXPECT_TRUE(Path::remove(Url::fromPath(folder / "missing")));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "remove " + (folder / "missing") + ": No such file or directory\n");
    EXPECT_FALSE(Path::remove(Url::fromPath("/proc/self/status")));
}

TEST(Path, DatesAreThoseOfTheEntry)
{
    const Tests::TemporaryDirectory folder;
    const std::string file = folder.write("file", "");
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::from_sys(
                                               std::chrono::sys_seconds(std::chrono::seconds(1'000'000'000))));
    EXPECT_EQ(Path::date(file, Platform::FileAttribute::modificationDate), Platform::Date(1'000'000'000));
    EXPECT_GT(Path::creationDate(file), Platform::Date(1'000'000'000));
    EXPECT_EQ(Path::date(file, Platform::FileAttribute::size), std::nullopt);
    EXPECT_EQ(Path::creationDate(folder / "missing"), std::nullopt);
}

TEST(Path, LastUseIsTheVisitInTheListOfRecentFiles)
{
    const Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment(folder.path());
    Tests::ReplacedLog log;
    const std::string used = folder.write("used äö%.txt", "");
    const auto list = [&](const std::string& visited) {
        return R"(<?xml version="1.0" encoding="UTF-8"?><xbel version="1.0"><bookmark href="file://)" + folder.path() +
               R"(/used%20%C3%A4%C3%B6%25.txt" visited=")" + visited + R"("></bookmark></xbel>)";
    };
    const std::pair<std::string, std::optional<Platform::Date>> rows[] = {
        {list("2024-02-03T04:05:06.5Z"), Platform::Date(1706933106.5)},
        {list("2024-02-03T04:05:09Z"), Platform::Date(1706933109)},
        {"<xbel", std::nullopt},
    };
    EXPECT_EQ(Path::lastUsedDate(used), std::nullopt);
    folder.makeFolder(".local/share");
    std::filesystem::create_symlink(folder / "list", folder / ".local/share/recently-used.xbel");
    for (const auto& [content, visited] : rows) {
        folder.write("list", content);
        EXPECT_EQ(Path::lastUsedDate(used), visited) << content;
        EXPECT_EQ(Path::lastUsedDate(folder.path()), std::nullopt) << "not in the list";
    }
}

TEST(DirectoryUrl, EachFolderHasItsPlace)
{
    const Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment("/Users/alice/Library/Containers/com.example.app/Data", "al");
    const std::pair<Directory, std::string> rows[] = {
        {Directory::applications, "/Applications"},
        {Directory::trash, "/Users/alice/Library/.Trash"},
        {Directory::mailAttachments, "/Users/alice/Library/Containers/com.apple.mail/Data/Library/Mail Downloads"},
        {Directory::volumes, "/Volumes"},
        {Directory::documents, "/Users/al/Documents"},
        {Directory::appDocuments, "/Users/alice/Library/Containers/com.example.app/Data/Documents"},
        {Directory::appleMapsCache, "/Users/alice/Library/Containers/com.apple.Maps"},
    };
    for (const auto& [directory, path] : rows) EXPECT_EQ(url(directory).path(), path);
    environment->setHome("/root");
    EXPECT_EQ(url(Directory::user), Url::fromPath("/Users/al", true));
    environment->setHome("/home/ada");
    EXPECT_EQ(url(Directory::user).path(), "/home/ada");
    environment->set("XDG_CONFIG_HOME", folder.path());
    folder.write("user-dirs.dirs", "# XDG_DOCUMENTS_DIR=\"/no\"\nXDG_DOCUMENTS_DIR=\"$HOME/My \\\"Papers\\\"\"\n");
    EXPECT_EQ(url(Directory::appDocuments).path(), "/home/ada/My \"Papers\"");
    folder.write("user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOMES/Papers\"\n");
    EXPECT_EQ(url(Directory::appDocuments).path(), "/home/ada/Documents");
}

class IconTest : public testing::Test {
protected:
    std::string of(const Platform::ImageRef& image) const { return icons->nameOf(image); }

    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};
    Tests::ReplacedIconService icons;
    FileIconManager manager;
};

TEST_F(IconTest, FileTypeDecidesExceptInsideAnApplication)
{
    EXPECT_EQ(of(Path::icon(Url::fromPath("/x/photo.JPG"))), "type public.jpeg");
    EXPECT_EQ(of(Path::icon(Url::fromPath("/x/what.q-q-q"))), "ending q-q-q");
    const std::string apps = root / "Applications";
    EXPECT_EQ(of(manager.icon(Url::fromPath(apps + "/Foo.app"))), "file " + apps + "/Foo.app");
    EXPECT_EQ(of(manager.icon(Url::fromPath("/else/Foo.app/Contents/In.app/MacOS/Foo"))), "file " + apps + "/Foo.app");
    EXPECT_EQ(of(manager.icon(Url::fromPath("/x/A.apps.app/b"))), "file " + apps + "/As.app");
    EXPECT_EQ(manager.icon(Url::fromPath("/tmp/readme.txt")), nullptr);
}

TEST_F(IconTest, NameIsLookedUpInTheSystemFolderFirstAndKeptOnlyFromTheOther)
{
    const std::string system = root.write("System/Applications/Sys.app/Contents/Resources/en.lproj/s.icns", "");
    root.write("Applications/Sys.app/Contents/Resources/other.icns", "");
    root.write("Applications/Mine.app/Contents/Resources/readme.txt", "");
    const std::string mine = root.write("Applications/Mine.app/Contents/Resources/m.icns", "");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(of(manager.icon("Sys")), "image " + system);
        EXPECT_EQ(of(manager.icon("Mine")), "file " + mine);
        EXPECT_EQ(of(manager.icon("Bare")), "file " + (root / "Applications/Bare.app"));
    }
    EXPECT_EQ(icons->questions.size(), 4u) << "only the system application's picture is read again";
    icons->lack("image " + system);
    EXPECT_EQ(of(manager.icon("Sys")), "file " + (root / "Applications/Sys.app/Contents/Resources/other.icns"));
}

}  // namespace
}  // namespace Lorrel
