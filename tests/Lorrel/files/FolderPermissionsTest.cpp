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
using Platform::OpenPanelAnswer;
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
    for (const Url& url : {refused, Url::fromPath(home / "missing", true)}) first->save(url);
    EXPECT_TRUE(defaults->keys().empty());
    for (const Url& url : {a, b}) first->save(url);
    for (const auto& permissions : {first, FolderPermissions::create(UserDefaults::suite("org.example.folders"))}) {
        EXPECT_EQ(permissions->keys(), (Keys{a.path(), b.path()}));
        EXPECT_TRUE(permissions->hasAccess({a, b}));
        EXPECT_FALSE(permissions->hasAccess({a, refused}));
    }
    const Url unnameable = folder("raw \xff");
    for (const Url& url : {unnameable, a}) first->save(url);
    EXPECT_TRUE(first->hasAccess(unnameable));
    EXPECT_EQ(storedKeys(), (Keys{a.path(), b.path(), a.path()})) << "the others are kept all the same";

    first->remove(first->keys().front());
    EXPECT_EQ(storedKeys(), Keys{b.path()}) << "every occurrence has gone";
    EXPECT_FALSE(first->hasAccess(a));
    EXPECT_EQ(defaults->value(a.path()), std::nullopt);
    first->remove(*first->storedUrls().find(b));
    EXPECT_EQ(storedKeys(), Keys{});
    first->save(a);
    first->removeAll();
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
    for (const Url& url : {good, refused}) {
        permissions->requestAccess(nullptr, url, answer);
        panel->choose(url);
    }
    for (const int response : {0, OpenPanelAnswer::ok}) {
        permissions->requestAccess(nullptr, answer);
        panel->end({response, std::nullopt, std::nullopt});
    }
    EXPECT_EQ(answers, (std::vector<std::optional<Url>>{good, refused, std::nullopt}));
    EXPECT_EQ(permissions->storedUrls(), std::set<Url>{good});
    EXPECT_EQ(panel->requests.front().directory, good);
    EXPECT_EQ(panel->requests.front().prompt, "Allow");
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
    const Url shown = a.deletingLastPathComponent();
    for (const auto& answer : {OpenPanelAnswer{OpenPanelAnswer::ok, a, shown}, OpenPanelAnswer()}) {
        SecureFolders::requestAccess(nullptr, a, "one", "Take it", [&](bool isChosen) { flags.push_back(isChosen); });
        panel->end(answer);
        SecureFolders::requestAccess(nullptr, std::nullopt, "two", "Take it",
                                     [&](const std::optional<Url>& place) { places.push_back(place); });
        panel->end(answer);
    }
    EXPECT_EQ(flags, (std::vector<bool>{true, false}));
    EXPECT_EQ(places, (std::vector<std::optional<Url>>{shown, std::nullopt}));
    EXPECT_EQ(UserDefaults::standard()->keys().size(), 2u);
}

}  // namespace
}  // namespace Lorrel
