#include <filesystem>

#include <gtest/gtest.h>

#include "Lorrel/files/FolderPermissions.h"
#include "Lorrel/files/SecureFolders.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeBookmarks.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeOpenPanel.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Keys = std::vector<std::string>;
using Platform::Url;
using Platform::UserDefaults;

class FolderPermissionsTest : public testing::Test {
protected:
    FolderPermissionsTest() : environment(home.path()) {}

    Url folder(const std::string& name) const { return Url::fromPath(home.makeFolder(name), true); }
    Keys storedKeys() const { return defaults->stringArray("Bookmarks").value_or(Keys{"none"}); }

    Tests::TemporaryDirectory home;
    Tests::ReplacedEnvironment environment;
    Tests::ReplacedLog log;
    Tests::ReplacedBookmarks bookmarks;
    Tests::ReplacedOpenPanel panel;
    Platform::Shared<UserDefaults>::Override freshDefaults;
    Platform::Shared<SecureFolders::Accessed>::Override freshFolders;
    std::shared_ptr<UserDefaults> defaults = UserDefaults::suite("org.example.folders");
};

TEST_F(FolderPermissionsTest, SavedFolderIsInUseNowAndAtTheNextLaunchARefusedOneNever)
{
    const Url a = folder("a");
    const Url b = folder("b");
    const Url refused = folder("refused");
    bookmarks->refused = {refused};
    const auto first = FolderPermissions::create(defaults);
    first->save(refused);
    first->save(Url::fromPath(home / "missing", true));
    EXPECT_EQ(first->count(), 0u);
    EXPECT_TRUE(defaults->keys().empty());
    EXPECT_EQ(first->creationOptions(), 0x800u);
    EXPECT_EQ(first->resolutionOptions(), 0x400u);
    first->save(a);
    first->save(b);
    for (const auto& permissions :
         {first, FolderPermissions::create(UserDefaults::suite("org.example.folders"), 1, 2)}) {
        EXPECT_EQ(permissions->count(), 2u);
        EXPECT_EQ(permissions->keys(), (Keys{a.path(), b.path()}));
        EXPECT_TRUE(permissions->hasAccess({a, b}));
        EXPECT_FALSE(permissions->hasAccess({a, folder("c")}));
    }
    EXPECT_EQ(storedKeys(), (Keys{a.path(), b.path()}));
    EXPECT_TRUE(defaults->data(a.path()).has_value());

    const Url unnameable = folder("raw \xff");
    first->save(unnameable);
    first->save(a);
    EXPECT_TRUE(first->hasAccess(unnameable));
    EXPECT_EQ(storedKeys(), (Keys{a.path(), b.path(), a.path()})) << "the others are kept all the same";
}

TEST_F(FolderPermissionsTest, RemovalTakesEveryOccurrenceAndTheStoredBookmark)
{
    const Url a = folder("a");
    const Url b = folder("b");
    const auto permissions = FolderPermissions::create(defaults);
    for (const Url& url : {a, b, a}) permissions->save(url);
    EXPECT_EQ(storedKeys(), (Keys{a.path(), b.path(), a.path()}));
    permissions->remove(permissions->keys().front());
    EXPECT_EQ(storedKeys(), Keys{b.path()});
    EXPECT_FALSE(permissions->hasAccess(a));
    EXPECT_EQ(defaults->value(a.path()), std::nullopt);
    permissions->remove(*permissions->storedUrls().begin());
    EXPECT_EQ(storedKeys(), Keys{});
    permissions->save(a);
    permissions->save(b);
    permissions->removeAll();
    EXPECT_EQ(permissions->count(), 0u);
    EXPECT_EQ(defaults->keys(), Keys{"Bookmarks"});
}

TEST_F(FolderPermissionsTest, WhatCannotBeRestoredStaysOutAndLeavesTheListAtTheNextChange)
{
    const Url moved = folder("moved");
    const Url refused = folder("refused");
    const Url good = folder("good");
    const auto first = FolderPermissions::create(defaults);
    for (const Url& url : {moved, refused, good}) first->save(url);
    defaults->set("broken", Platform::PropertyList::Data{1, 2, 3});
    defaults->setStringArray("Bookmarks", {moved.path(), refused.path(), "broken", "no data", good.path()});
    std::filesystem::rename(moved.path(), home / "elsewhere");
    bookmarks->refused = {refused};

    const auto next = FolderPermissions::create(defaults);
    EXPECT_EQ(next->keys(), Keys{good.path()});
    EXPECT_EQ(log->messages().size(), 1u) << "only what is no bookmark is an error";
    EXPECT_EQ(storedKeys().size(), 5u);
    next->remove("none such");
    EXPECT_EQ(storedKeys(), Keys{good.path()});
    EXPECT_TRUE(defaults->data(moved.path()).has_value()) << "its data stays";
    defaults->set("Bookmarks", Platform::PropertyList::Array{good.path(), 1});
    EXPECT_EQ(FolderPermissions::create(defaults)->count(), 0u) << "a list with anything but texts";
}

TEST_F(FolderPermissionsTest, PanelSavesTheChosenFolder)
{
    const auto permissions = FolderPermissions::create(defaults);
    const Url good = folder("good");
    const Url refused = folder("refused");
    bookmarks->refused = {refused};
    std::vector<std::optional<Url>> answers;
    const auto answer = [&](const std::optional<Url>& url) { answers.push_back(url); };

    permissions->requestAccess(nullptr, good, answer);
    panel->choose(good);
    permissions->requestAccess(nullptr, refused, answer);
    panel->choose(refused);
    permissions->requestAccess(nullptr, answer);
    panel->end({0, std::nullopt, std::nullopt});
    permissions->requestAccess(nullptr, answer);
    panel->end({Platform::OpenPanelAnswer::ok, std::nullopt, std::nullopt});

    EXPECT_EQ(answers, (std::vector<std::optional<Url>>{good, refused, std::nullopt}));
    EXPECT_EQ(permissions->storedUrls(), std::set<Url>{good});
    const auto& request = panel->requests.front();
    EXPECT_EQ(request.directory, good);
    EXPECT_EQ(request.prompt, "Allow");
    EXPECT_TRUE(request.canChooseDirectories);
    EXPECT_FALSE(request.canChooseFiles || request.canCreateDirectories || request.allowsMultipleSelection);
}

TEST_F(FolderPermissionsTest, SecureFoldersKeepOneSetForTheProcess)
{
    const Url a = folder("a");
    const Url b = folder("b");
    bookmarks->refused = {b};
    SecureFolders::save(a, "first");
    SecureFolders::save(b, "second");
    EXPECT_TRUE(SecureFolders::hasAccess({a}));
    EXPECT_FALSE(SecureFolders::hasAccess({a, b}));
    EXPECT_TRUE(SecureFolders::hasAccess({}));
    EXPECT_EQ(UserDefaults::standard()->keys(), Keys{"first"});
    SecureFolders::stopAccessing(a);
    EXPECT_EQ(bookmarks->stopped, std::set<Url>{a});
    EXPECT_FALSE(SecureFolders::hasAccess({a}));
    SecureFolders::restore(Keys{"first", "second"});
    EXPECT_TRUE(SecureFolders::hasAccess({a}));
    SecureFolders::removeBookmarks(Keys{"first", "other"});
    EXPECT_EQ(UserDefaults::standard()->keys(), Keys{});
}

TEST_F(FolderPermissionsTest, PanelsOfSecureFoldersTellWhatWasChosenAndWhere)
{
    const Url a = folder("a");
    std::vector<bool> flags;
    std::vector<std::optional<Url>> places;
    const auto flag = [&](bool isChosen) { flags.push_back(isChosen); };
    const auto place = [&](const std::optional<Url>& url) { places.push_back(url); };

    SecureFolders::requestAccess(nullptr, a, "one", "Take it", flag);
    panel->choose(a);
    SecureFolders::requestAccess(nullptr, a, "one", "Take it", flag);
    panel->end({});
    SecureFolders::requestAccess(nullptr, std::nullopt, "two", "Take it", place);
    panel->choose(a);
    SecureFolders::requestAccess(nullptr, std::nullopt, "two", "Take it", place);
    panel->end({});

    EXPECT_EQ(flags, (std::vector<bool>{true, false}));
    EXPECT_EQ(places, (std::vector<std::optional<Url>>{a.deletingLastPathComponent(), std::nullopt}));
    EXPECT_EQ(panel->requests[0].prompt, "Take it");
    EXPECT_EQ(panel->requests[2].directory, std::nullopt);
    EXPECT_EQ(UserDefaults::standard()->keys().size(), 2u);
}

}  // namespace
}  // namespace Lorrel
