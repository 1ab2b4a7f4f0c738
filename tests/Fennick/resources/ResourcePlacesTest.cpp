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
    void place(const std::string& folder, const std::string& library)
    {
        const std::string name = library + "_" + library + ".bundle";
        fs::create_directories(root / folder);
        fs::copy(built + "/" + name, root / (folder + "/" + name), fs::copy_options::recursive);
    }
    void place(const std::string& folder)
    {
        for (const char* library : {"Fennick", "Lorrel"}) place(folder, library);
    }

    // Of the program, put there first where it is not.
    std::string outputOf(const std::string& program)
    {
        fs::create_directories(fs::path(root / program).parent_path());
        fs::copy(RESOURCE_PROBE, root / program, fs::copy_options::skip_existing);
        return outputAt(root / program);
    }
    static std::string outputAt(const std::string& program)
    {
        return Tests::ChildProcess({program}, {.streams = Tests::ChildStreams::outputAndErrors}).readAll();
    }

    std::string found(const std::string& folder) const
    {
        return root / (folder + "Fennick_Fennick.bundle\n") + root / (folder + "Lorrel_Lorrel.bundle\n");
    }

    Tests::TemporaryDirectory root;
};

}  // namespace

TEST_F(ResourcePlaces, ComeInTheirOrder)
{
    place("a/App.app");
    EXPECT_EQ(outputOf("a/App.app/Contents/MacOS/app"), found("a/App.app/"));
    place("share/pellora");
    EXPECT_EQ(outputOf("a/App.app/Contents/MacOS/app"), found("share/pellora/"));
    place("a/App.app/Contents/Resources");
    EXPECT_EQ(outputOf("a/App.app/Contents/MacOS/app"), found("a/App.app/Contents/Resources/"));
}

TEST_F(ResourcePlaces, ServeTheBuildTreeAnInstallTreeAndAProgramBesideThem)
{
    EXPECT_EQ(outputAt(RESOURCE_PROBE), built + "/Fennick_Fennick.bundle\n" + built + "/Lorrel_Lorrel.bundle\n");
    place("usr/share/pellora");
    EXPECT_EQ(outputOf("usr/bin/probe"), found("usr/share/pellora/"));
    place("alone");
    EXPECT_EQ(outputOf("alone/probe"), found("alone/"));
}

TEST_F(ResourcePlaces, EndAProgramThatHasNone)
{
    EXPECT_EQ(outputOf("probe"),
              "Fennick/resource_bundle_accessor: Fatal error: unable to find bundle named Fennick_Fennick\n");
    place(".", "Fennick");
    EXPECT_EQ(outputOf("probe"),
              root / "Fennick_Fennick.bundle\n" +
                  "Lorrel/resource_bundle_accessor: Fatal error: unable to find bundle named Lorrel_Lorrel\n");
}
