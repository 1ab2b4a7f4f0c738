#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

namespace fs = std::filesystem;

namespace {

const std::string built = BUILT_RESOURCES;

// A program of the libraries, moved to a folder of its own.
class ResourcePlaces : public testing::Test {
protected:
    void place(const std::string& folder, const std::vector<std::string>& libraries = {"Fennick", "Lorrel"})
    {
        fs::create_directories(root / folder);
        for (const std::string& library : libraries) {
            const std::string name = '/' + library + '_' + library + ".bundle";
            fs::copy(built + name, root / (folder + name), fs::copy_options::recursive);
        }
    }

    static std::string outputOf(const std::string& program)
    {
        return Tests::ChildProcess({program}, {.streams = Tests::ChildStreams::outputAndErrors}).readAll();
    }

    static std::string foundIn(const std::string& folder)
    {
        return folder + "/Fennick_Fennick.bundle\n" + folder + "/Lorrel_Lorrel.bundle\n";
    }

    Tests::TemporaryDirectory root;
};

}  // namespace

TEST_F(ResourcePlaces, ComeInTheirOrderInABundleAnInstallTreeAFolderAndTheBuildTree)
{
    const std::pair<const char*, const char*> cases[] = {
        {"a/App.app", "a/App.app/Contents/MacOS/app"},
        {"share/pellora", "a/App.app/Contents/MacOS/app"},
        {"a/App.app/Contents/Resources", "a/App.app/Contents/MacOS/app"},
        {"usr/share/pellora", "usr/bin/probe"},
        {"b/alone", "b/alone/probe"},
    };
    for (const auto& [folder, program] : cases) {
        place(folder);
        fs::create_directories(fs::path(root / program).parent_path());
        fs::copy(RESOURCE_PROBE, root / program, fs::copy_options::skip_existing);
        EXPECT_EQ(outputOf(root / program), foundIn(root / folder)) << folder;
    }
    EXPECT_EQ(outputOf(RESOURCE_PROBE), foundIn(built));
}

TEST_F(ResourcePlaces, EndAProgramThatHasNone)
{
    fs::copy(RESOURCE_PROBE, root / "probe");
    EXPECT_EQ(outputOf(root / "probe"),
              "Fennick/resource_bundle_accessor: Fatal error: unable to find bundle named Fennick_Fennick\n");
    place(".", {"Fennick"});
    EXPECT_EQ(outputOf(root / "probe"),
              root / "Fennick_Fennick.bundle\n" +
                  "Lorrel/resource_bundle_accessor: Fatal error: unable to find bundle named Lorrel_Lorrel\n");
}
