#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "Lorrel/apps/App.h"
#include "Lorrel/apps/Apps.h"
#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/bundle/PropertyList.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeIconService.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Names = std::vector<std::string>;
using Platform::PropertyList;
using Platform::Url;

class AppsCatalogTest : public testing::Test {
protected:
    Url bundle(const std::string& path, const PropertyList::Dictionary& information) const
    {
        root.write(path + "/Contents/Info.plist", *PropertyList(information).xml());
        return Url::fromPath(root / path);
    }
    Url bundle(const std::string& path, const std::string& identifier) const
    {
        return bundle(path, PropertyList::Dictionary{{"CFBundleIdentifier", identifier}});
    }
    static Names identifiers(const std::vector<std::shared_ptr<App>>& apps)
    {
        Names found;
        for (const auto& app : apps) found.push_back(app->identifier());
        std::ranges::sort(found);
        return found;
    }

    Tests::TemporaryDirectory root;
    Tests::ReplacedSystemRoots roots{root.path()};
    Tests::ReplacedIconService icons;
    Platform::Shared<FileIconManager>::Override freshIcons;
};

TEST_F(AppsCatalogTest, RecordHoldsWhatTheBundleSays)
{
    const Url url = bundle("Applications/Foo.appstore.app", {{"CFBundleIdentifier", "org.example.foo"},
                                                             {"CFBundleShortVersionString", "1.2"},
                                                             {"NSHumanReadableCopyright", "(c) Ada"}});
    const auto app = Apps::app(url, false, true);
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(app->name(), "Foostore");
    EXPECT_EQ(app->identifier(), "org.example.foo");
    EXPECT_EQ(app->version(), "1.2");
    EXPECT_EQ(app->copyright(), "(c) Ada");
    EXPECT_EQ(app->binaryFile(), url);
    EXPECT_EQ(app->baseUrl()->path(), root / "Applications/Foostore.app");
    EXPECT_EQ(icons->nameOf(app->icon()), "file " + (root / "Applications/Foostore.app"));
    EXPECT_EQ(app->installed(), Path::creationDate(url.path()));
    EXPECT_TRUE(app->installed() && app->children().empty());
    EXPECT_EQ(Apps::bundleIdentifier(url), "org.example.foo");
}

TEST_F(AppsCatalogTest, OnlyBundlesWithAnIdentifierHaveRecords)
{
    root.write("Broken.app/Contents/Info.plist", "<plist>");
    const std::pair<Url, bool> rows[] = {
        {Url::fromPath(root / "Broken.app"), false},
        {bundle("B.app", {{"CFBundleIdentifier", 7}}), false},
        {bundle("C.app", {{"CFBundleIdentifier", "c"}, {"CFBundleShortVersionString", 7}}), true},
        {bundle("D.app", "com.apple.Safari"), false},
        {bundle("E.app", "com.applesoft.x"), true},
        {bundle("F.app", "com.apple"), true},
    };
    for (const auto& [url, hasRecord] : rows) {
        const auto app = Apps::app(url, true, true);
        EXPECT_EQ(app != nullptr, hasRecord) << url.path();
        EXPECT_FALSE(app && app->version()) << url.path();
    }
}

TEST_F(AppsCatalogTest, InstalledAppsAreFoundInSubfoldersWithTheirChildren)
{
    bundle("Applications/A.app", "org.a");
    bundle("Applications/A.app/Contents/Library/LoginItems/Helper.app", "org.a.helper");
    bundle("Applications/A.app/Contents/Library/LoginItems/Helper.app/Contents/Inner.app", "org.a.helper.inner");
    bundle("Applications/A.app/Contents/PlugIns/P.appex", "com.apple.p");
    bundle("Applications/A.app/Contents/XPCServices/S.xpc", "org.a.s");
    bundle("Applications/A.app/Contents/.hidden/H.app", "org.a.hidden");
    bundle("Applications/A.app/Contents/Other.bundle", "org.a.other");
    bundle("Applications/Utilities/Deep/B.app", "org.b");
    bundle("Applications/Utilities/C.app", "com.apple.c");
    bundle("Applications/.D.app", "org.d");
    root.makeFolder("Applications/Empty.app");
    const std::string icon = root.write("Applications/A.app/Contents/Resources/sizes/A.icns", "");
    for (int i = 10; i < 40; ++i) bundle("Applications/Apple/" + std::to_string(i) + ".app", "com.apple.many");
    const auto apps = Apps::installedApps(true);
    EXPECT_EQ(identifiers(apps), (Names{"org.a", "org.b"}));
    const auto& a = *std::ranges::find(apps, "org.a", &App::identifier);
    EXPECT_EQ(icons->nameOf(a->icon()), "file " + icon);
    EXPECT_EQ(a->baseUrl(), a->binaryFile());
    EXPECT_EQ(identifiers(a->children()), (Names{"org.a.helper", "org.a.s"}));
    for (const auto& child : a->children()) EXPECT_TRUE(child->children().empty());
    EXPECT_EQ(Apps::installedApps(false).size(), 33u);
}

TEST_F(AppsCatalogTest, ProductIsTheFirstApplicationBelowProducts)
{
    root.makeFolder("Products/Debug/.hidden.app");
    EXPECT_FALSE(Apps::productApp(root.url()).has_value());
    root.makeFolder("Products/Debug/My.apple.app/Contents/Nested.app");
    const auto product = Apps::productApp(root.url());
    ASSERT_TRUE(product.has_value());
    EXPECT_EQ(product->name, "Myle");
    EXPECT_EQ(icons->nameOf(product->icon), "file " + (root / "Products/Debug/My.apple.app"));
}

TEST_F(AppsCatalogTest, SizesAreSumsOfFilesAndFolders)
{
    const auto folderWith = [&](const std::string& name, int size) {
        root.write(name + "/deep/.hidden", std::string(size, 'x'));
        return Url::fromPath(root / name);
    };
    App app("Sized", "org.sized");
    app.setBinaryFile(folderWith("Sized.app", 1));
    app.setContainer(folderWith("container", 20));
    app.setPreferences(Url::fromPath(root.write("preferences.plist", std::string(300, 'x'))));
    app.setSavedState(Url::fromPath(root / "missing"));
    app.setCaches({folderWith("cache", 4000), folderWith("caches", 50'000), Url::fromPath(root / "none")});
    EXPECT_EQ(app.totalSize(), 54'321u);
}

}  // namespace
}  // namespace Lorrel
