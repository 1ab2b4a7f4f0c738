#include <gtest/gtest.h>

#include "platform/files/TypeIdentifier.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

TEST(TypeIdentifier, ComesFromTheNameAndWhetherItIsAFolder)
{
    const Tests::TemporaryDirectory folder;
    const std::pair<const char*, const char*> rows[] = {
        {"a.jpeg", "public.jpeg"},
        {"a.PNG", "public.png"},
        {"a.tar.gz", "org.gnu.gnu-zip-tar-archive"},
        {"a.txt", "public.plain-text"},
        {"none", "public.data"},
        {"a.pdf", "com.adobe.pdf"},
        {"a.heic", "public.heic"},
        {"a.epub", "application/epub+zip"},
    };
    for (const auto& [name, type] : rows) EXPECT_EQ(typeIdentifier(Url::fromPath(folder.write(name, "x"))), type);
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder.makeFolder("a.txt.d"))), "public.folder");
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder.makeFolder("A.app"))), "com.apple.package");
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder / "missing.txt")), std::nullopt);
    EXPECT_EQ(typeIdentifierForExtension("jpg"), "public.jpeg");
    EXPECT_EQ(typeIdentifierForExtension(""), std::nullopt);
    EXPECT_EQ(typeIdentifierForExtension("no-such-ending"), std::nullopt);
}

TEST(TypeIdentifier, ConformsToItselfAndTheKindsAboveIt)
{
    const struct {
        const char* type;
        const char* to;
        bool conforms;
    } rows[] = {
        {"public.jpeg", "public.image", true},
        {"public.jpeg", "public.movie", false},
        {"image/x-canon-cr2", "public.image", true},
        {"public.mpeg-4", "public.movie", true},
        {"public.mp3", "public.audio", true},
        {"public.zip-archive", "public.archive", true},
        {"application/x-xz-compressed-tar", "public.archive", true},
        {"application/epub+zip", "public.archive", false},
        {"com.adobe.pdf", "com.adobe.pdf", true},
        {"public.plain-text", "com.adobe.pdf", false},
        {"text/x-csrc", "public.plain-text", true},
        {"public.json", "public.data", true},
        {"com.example.unheard-of", "public.image", false},
        {"public.jpeg", "com.example.unheard-of", false},
        {"", "public.image", false},
    };
    for (const auto& row : rows) EXPECT_EQ(typeConforms(row.type, row.to), row.conforms) << row.type << " " << row.to;
}

}  // namespace
}  // namespace Platform
