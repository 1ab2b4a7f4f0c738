#include <filesystem>

#include <gtest/gtest.h>

#include "platform/files/Bookmarks.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

namespace fs = std::filesystem;

TEST(Bookmarks, LeadBackToTheSameEntryOnly)
{
    const Tests::TemporaryDirectory root;
    const std::string place = root / "place \xe9";
    const std::string elsewhere = root / "elsewhere";
    const struct {
        const char* what;
        std::function<void()> change;
        bool isStale;
    } rows[] = {
        {"filled", [&] { root.write("place \xe9/file", "x"); }, false},
        {"permissions changed", [&] { fs::permissions(place, fs::perms::owner_all); }, false},
        {"replaced by another",
         [&] {
             fs::remove_all(place);
             fs::create_directory(place);
         },
         true},
        {"moved", [&] { fs::rename(place, elsewhere); }, true},
        {"replaced by a link to where it went", [&] { fs::create_directory_symlink(elsewhere, place); }, false},
    };
    EXPECT_FALSE(Bookmarks::shared().create(*Url::parse("https://example.org/"), 0));
    fs::create_directory(place);
    const Url url = Url::fromPath(place);
    auto bookmark = Bookmarks::shared().create(url, 0);
    for (const auto& row : rows) {
        ASSERT_TRUE(bookmark) << row.what;
        row.change();
        const auto resolved = Bookmarks::shared().resolve(*bookmark, 0);
        ASSERT_TRUE(resolved) << row.what;
        EXPECT_EQ(resolved->url, url) << row.what;
        EXPECT_EQ(resolved->isStale, row.isStale) << row.what;
        // What has gone is still known by the last one.
        if (fs::exists(place)) bookmark = Bookmarks::shared().create(url, 0);
    }
}

}  // namespace
}  // namespace Platform
