#include <filesystem>

#include <gtest/gtest.h>

#include "platform/files/Bookmarks.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

constexpr auto scope = BookmarkOptions::resolutionWithSecurityScope;

TEST(Bookmarks, LeadBackToTheSameEntryOnly)
{
    namespace fs = std::filesystem;
    const Tests::TemporaryDirectory root;
    const std::string place = root / "place \xe9";
    const struct {
        const char* what;
        std::function<void()> change;
        bool isStale;
    } rows[] = {
        {"untouched", [] {}, false},
        {"filled", [&] { root.write("place \xe9/file", "x"); }, false},
        {"permissions changed", [&] { fs::permissions(place, fs::perms::owner_all); }, false},
        {"deleted", [&] { fs::remove_all(place); }, true},
        {"moved", [&] { fs::rename(place, root / "elsewhere"); }, true},
        {"replaced by another folder",
         [&] {
             fs::remove_all(place);
             fs::create_directory(place);
         },
         true},
        {"replaced by a link to where it went",
         [&] {
             fs::rename(place, root / "elsewhere");
             fs::create_directory_symlink(root / "elsewhere", place);
         },
         false},
        {"replaced by a link to another",
         [&] {
             fs::remove_all(place);
             fs::create_directory_symlink(root.path(), place);
         },
         true},
    };
    for (const auto& row : rows) {
        fs::remove_all(place);
        fs::remove_all(root / "elsewhere");
        fs::create_directory(place);
        const Url url = Url::fromPath(place);
        const auto bookmark = Bookmarks::shared().create(url, BookmarkOptions::creationWithSecurityScope);
        ASSERT_TRUE(bookmark) << row.what;
        row.change();
        const auto resolved = Bookmarks::shared().resolve(*bookmark, scope);
        ASSERT_TRUE(resolved) << row.what;
        EXPECT_EQ(resolved->url, url) << row.what;
        EXPECT_EQ(resolved->isStale, row.isStale) << row.what;
    }
}

TEST(Bookmarks, NoneIsMadeOfNothingAndNoneIsReadFromOtherBytes)
{
    const Tests::TemporaryDirectory root;
    EXPECT_FALSE(Bookmarks::shared().create(Url::fromPath(root / "missing"), 0));
    EXPECT_FALSE(Bookmarks::shared().create(*Url::parse("https://example.org/"), 0));
    const auto whole = Bookmarks::shared().create(root.url(), 0);
    ASSERT_TRUE(whole);
    for (std::size_t length = 0; length < whole->size(); ++length) {
        const PropertyList::Data cut(whole->begin(), whole->begin() + static_cast<long>(length));
        EXPECT_FALSE(Bookmarks::shared().resolve(cut, scope)) << length;
    }
    EXPECT_TRUE(Bookmarks::shared().startAccessing(root.url()));
    EXPECT_FALSE(Bookmarks::shared().startAccessing(Url::fromPath(root / "missing")));
}

}  // namespace
}  // namespace Platform
