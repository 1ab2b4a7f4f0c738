#include <filesystem>

#include <gtest/gtest.h>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/TemporaryDirectory.h"

using Platform::Bundle;
using Platform::PropertyList;

namespace {

std::string plist(PropertyList::Dictionary entries)
{
    return *PropertyList(std::move(entries)).xml();
}

class BundleTest : public testing::Test {
protected:
    std::string makeBundle(const std::string& name, const std::string& info)
    {
        folder.write(name + "/Contents/Info.plist", info);
        return folder / name;
    }

    Tests::TemporaryDirectory folder;
    Tests::ReplacedEnvironment environment;
};

}  // namespace

TEST_F(BundleTest, AnswersFromItsInformationDictionaryInBothForms)
{
    const PropertyList info = PropertyList::Dictionary{
        {"CFBundleIdentifier", "org.example.a"}, {"CFBundleExecutable", "run me"}, {"Count", 3}};
    for (const auto& form : {info.xml(), info.binary()}) {
        const std::string path = makeBundle("A b'\"%41\né.app", *form);
        const auto bundle = Bundle::open(path + "/");
        EXPECT_EQ(bundle->bundlePath(), path);
        EXPECT_EQ(bundle->bundleIdentifier(), "org.example.a");
        EXPECT_EQ(bundle->executablePath(), path + "/Contents/MacOS/run me");
        EXPECT_EQ(bundle->objectForInfoDictionaryKey("Count"), PropertyList(3));
    }
}

TEST_F(BundleTest, UnusableInformationReadsAsNone)
{
    std::string deep = "<plist version=\"1.0\">";
    for (int i = 0; i < 200000; ++i) deep += "<array>";
    const std::string good = plist({{"CFBundleIdentifier", "x"}, {"CFBundleExecutable", "x"}});
    for (const auto& info :
         std::vector<std::string>{"", good.substr(0, good.size() / 2), deep,
                                  *PropertyList(PropertyList::Array{"CFBundleIdentifier"}).binary(),
                                  plist({{"CFBundleIdentifier", 5}, {"CFBundleExecutable", PropertyList::Array{}}}),
                                  plist({{"CFBundleIdentifier", ""}, {"CFBundleExecutable", "../../../bin/sh"}})}) {
        const auto bundle = Bundle::open(makeBundle("Bad.app", info));
        EXPECT_FALSE(bundle->bundleIdentifier()) << info.substr(0, 80);
        EXPECT_FALSE(bundle->executablePath()) << info.substr(0, 80);
    }
    EXPECT_FALSE(Bundle::open(folder.makeFolder("Empty.app"))->bundleIdentifier());
    EXPECT_FALSE(Bundle::open(folder / "Missing.app"));
    EXPECT_FALSE(Bundle::open(folder.write("File.app", "x")));
}

TEST_F(BundleTest, TheUsersLanguageComesFirst)
{
    // A table in each language that says which one it is.
    for (const std::string language : {"en", "de", "pt", "pt-BR", "fr"}) {
        const std::string base = "L.app/Contents/Resources/" + language + ".lproj/";
        folder.write(base + "Localizable.strings", plist({{"language", language}, {language, "own"}}));
        folder.write(base + "InfoPlist.strings", plist({{"CFBundleName", language}}));
        folder.write(base + "page.txt", language);
    }
    makeBundle("L.app", plist({{"CFBundleName", "raw"}, {"CFBundleDevelopmentRegion", "fr"}}));
    const std::pair<std::map<std::string, std::string>, std::string> cases[] = {
        {{}, "fr"},  // the development language
        {{{"LANG", "xx_YY"}}, "fr"},
        {{{"LANG", "de_DE.UTF-8"}}, "de"},
        {{{"LANG", "pt_BR@latin"}}, "pt-BR"},
        {{{"LANG", "de"}, {"LC_MESSAGES", "pt_PT"}}, "pt"},
        {{{"LANG", "de"}, {"LC_MESSAGES", "pt"}, {"LC_ALL", "en_US"}}, "en"},
        {{{"LANG", "de"}, {"LC_ALL", ""}}, "de"},
    };
    for (const auto& [variables, language] : cases) {
        Tests::ReplacedEnvironment session;
        for (const auto& [name, value] : variables) session->set(name, value);
        const auto bundle = Bundle::open(folder / "L.app");
        EXPECT_EQ(bundle->localizedString("language"), language);
        EXPECT_EQ(bundle->objectForInfoDictionaryKey("CFBundleName"), PropertyList(language));
        EXPECT_EQ(Tests::contentOf(bundle->urlForResource("page", "txt")->path()), language);
        EXPECT_EQ(bundle->localizedString("en"), "own") << "a farther language fills the gaps";
        EXPECT_EQ(bundle->localizedString("missing", "given"), "given");
    }
}

TEST_F(BundleTest, ResourcesOfEachLayout)
{
    folder.write("Deep.app/Contents/Resources/sub/a.json", "");
    folder.write("Flat.bundle/sub/a.json", "");
    folder.write("Half.bundle/Resources/Info.plist", plist({{"CFBundleIdentifier", "half"}}));
    folder.write("Half.bundle/Resources/sub/a.json", "");
    for (const std::string resources : {"Deep.app/Contents/Resources", "Flat.bundle", "Half.bundle/Resources"}) {
        const auto bundle = Bundle::open(folder / resources.substr(0, resources.find('/')));
        EXPECT_EQ(bundle->urlForResource("sub/a", "json")->path(), folder / resources + "/sub/a.json");
        EXPECT_TRUE(bundle->urlForResource("sub/a", ".json"));
        for (const char* name : {"", "missing", "../Flat.bundle/sub/a.json", "/etc/passwd"}) {
            EXPECT_FALSE(bundle->urlForResource(name, "")) << resources << " " << name;
        }
    }
    EXPECT_EQ(Bundle::open(folder / "Half.bundle")->bundleIdentifier(), "half");
}

TEST_F(BundleTest, MainIsTheInnermostFolderAroundTheProgram)
{
    const Tests::ReplacedSystemRoots roots(folder.path());
    folder.makeFolder("proc/self");
    for (const auto& [program, bundle] : {
             std::pair{"/A.app/Contents/MacOS/a", "/A.app"},
             {"/A.app/Contents/Library/LoginItems/B.app/Contents/MacOS/b", "/A.app/Contents/Library/LoginItems/B.app"},
             {"/A.app/Contents/MacOS/gone (deleted)", "/A.app"},
             {"/usr/bin/plain", "/usr/bin"},
             {"/init", "/"},
         }) {
        std::filesystem::remove(folder / "proc/self/exe");
        std::filesystem::create_symlink(program, folder / "proc/self/exe");
        const Platform::Shared<Bundle>::Override fresh;
        EXPECT_EQ(Bundle::main().bundlePath(), bundle);
        EXPECT_EQ(Bundle::main().executablePath(), std::string(program).substr(0, std::string(program).find(" (")));
    }
}

TEST(Package, EndingsDecideInAnyLetterCase)
{
    for (const char* name : {"A.app", "/x/A.APP/", "a.b.prefPane"}) EXPECT_TRUE(Platform::isPackage(name)) << name;
    for (const char* name : {"", "app", ".app", "A.apps", "A.app/x"}) EXPECT_FALSE(Platform::isPackage(name)) << name;
    EXPECT_EQ(Platform::innermostPackage("/A.app/B.bundle/c"), "/A.app/B.bundle");
    EXPECT_FALSE(Platform::innermostPackage("/x/A.app"));
}
