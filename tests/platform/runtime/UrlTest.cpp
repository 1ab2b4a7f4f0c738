#include <gtest/gtest.h>

#include "platform/runtime/Url.h"

using Platform::Url;

TEST(Url, FileLocationsGiveTheirParts)
{
    const struct {
        const char* path;
        bool isDirectory;
        const char *text, *last, *extension, *parent;
    } cases[] = {
        {"/a/b.txt", false, "file:///a/b.txt", "b.txt", "txt", "/a"},
        {"/a/App 1.app//", true, "file:///a/App%201.app/", "App 1.app", "app", "/a"},
        {"/", true, "file:///", "/", "", "/"},
        {"/a/100%/\xC3\xA9\n", false, "file:///a/100%25/%C3%A9%0A", "\xC3\xA9\n", "", "/a/100%"},
        {"/a/.hidden", false, "file:///a/.hidden", ".hidden", "", "/a"},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.path);
        const Url url = Url::fromPath(item.path, item.isDirectory);
        EXPECT_EQ(url.absoluteString(), item.text);
        EXPECT_EQ(url.lastPathComponent(), item.last);
        EXPECT_EQ(url.pathExtension(), item.extension);
        EXPECT_EQ(url.deletingLastPathComponent().path(), item.parent);
        EXPECT_EQ(Url::parse(item.text), url);
    }
}

TEST(Url, ParsesOtherSchemesAndRefusesWhatIsNoUrl)
{
    const auto url = Url::parse("HTTPS://user@Example.org:8080/a%20b/?q=1&r=%2F#part");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme(), "https");
    EXPECT_EQ(url->host(), "Example.org");
    EXPECT_EQ(url->path(), "/a b");
    EXPECT_EQ(url->query(), "q=1&r=%2F");
    EXPECT_EQ(Url::parse("http://[::1]:80/")->host(), "::1");

    for (const char* text : {"", "no-scheme", ":x", "1a:b", "http://a b", "http://a/%zz", "http://a/%2", "x:\x01",
                             "file:", "file:///a%00b"}) {
        EXPECT_FALSE(Url::parse(text)) << text;
    }
}

TEST(Url, SplitsJoinsAndStandardizesPaths)
{
    const std::vector<std::string> parts{"/", "Applications", "Pellora.app"};
    EXPECT_EQ(Platform::pathComponents("/Applications//Pellora.app/"), parts);
    EXPECT_EQ(Platform::pathWithComponents(parts), "/Applications/Pellora.app");

    EXPECT_EQ(Url::fromPath("/a/./b/../../../c", false).standardized().path(), "/c");
    EXPECT_EQ(Url::fromPath("../x/..", false).standardized().path(), "..");
    EXPECT_EQ(Url::fromPath("/a", true).appendingPathComponent("b", true).absoluteString(), "file:///a/b/");
    EXPECT_NE(Url::fromPath("/a", true), Url::fromPath("/a", false));
}
