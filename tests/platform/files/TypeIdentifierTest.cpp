#include <gtest/gtest.h>

#include "platform/files/TypeIdentifier.h"
#include "tests/support/TemporaryDirectory.h"

namespace Platform {
namespace {

TEST(TypeIdentifier, ComesFromTheNameAndWhetherItIsAFolder)
{
    const Tests::TemporaryDirectory folder;
    const std::pair<const char*, const char*> files[] = {
        {"a.PNG", "public.png"}, {"a.tar.gz", "org.gnu.gnu-zip-tar-archive"}, {"a.txt", "public.plain-text"},
        {"none", "public.data"}, {"a.epub", "application/epub+zip"},
    };
    for (const auto& [name, type] : files) EXPECT_EQ(typeIdentifier(Url::fromPath(folder.write(name, "x"))), type);
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder.makeFolder("a.txt.d"))), "public.folder");
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder.makeFolder("A.app"))), "com.apple.package");
    EXPECT_EQ(typeIdentifier(Url::fromPath(folder / "missing.txt")), std::nullopt);
    EXPECT_EQ(typeIdentifierForExtension(""), std::nullopt);
}

TEST(TypeIdentifier, ConformsToItselfAndTheKindsAboveIt)
{
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"image/x-canon-cr2", "public.image", true},       {"application/epub+zip", "public.archive", false},
        {"text/x-csrc", "public.plain-text", true},        {"public.json", "public.data", true},
        {"com.example.unheard-of", "public.image", false}, {"public.jpeg", "com.example.unheard-of", false},
    };
    for (const auto& [type, to, conforms] : rows) EXPECT_EQ(typeConforms(type, to), conforms) << type << " " << to;
}

}  // namespace
}  // namespace Platform
