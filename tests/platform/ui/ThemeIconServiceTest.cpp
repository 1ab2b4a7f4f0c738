#include <gtest/gtest.h>

#include "platform/files/OpenPanel.h"
#include "platform/runtime/Shared.h"
#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/icons/ThemeIconService.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

class FileIcons : public testing::Test {
protected:
    FileIcons()
    {
        std::uint32_t pixel = 0xff000000;
        for (const char* name : {"folder", "text-x-generic", "image-x-generic", "application-x-executable",
                                 "preferences-system", "package-x-generic"}) {
            addPicture(std::string("themes/hicolor/32/") + name + ".png", 32, ++pixel);
        }
        root.write("themes/hicolor/index.theme", "[Icon Theme]\nDirectories=32\n[32]\nSize=32\n");
    }

    void addPicture(const std::string& path, int side, std::uint32_t pixel)
    {
        root.write(path, Tests::pngOf(Tests::Rows(side, std::vector(side, pixel))));
    }
    // Which picture it is: the last byte of its pixels; 0 for none.
    std::uint32_t shown(const ImageRef& icon) { return icon ? icon->bitmap()->pixel(9, 9) & 0xff : 0; }
    std::uint32_t shownFor(const std::string& path) { return shown(service.iconForFile(path)); }

    Tests::TemporaryDirectory root;
    Shared<IconTheme>::Override theme{
        std::make_shared<IconTheme>(std::vector<std::string>{root / "themes"}, "hicolor")};
    ThemeIconService service;
};

TEST_F(FileIcons, ShowTheKindOfWhatStandsThere)
{
    addPicture("a.png", 4, 0xffffffff);
    root.write("notes.txt", "text");
    EXPECT_EQ(shownFor(root.path()), 1u);
    EXPECT_EQ(shownFor(root / "notes.txt"), 2u);
    EXPECT_EQ(shownFor(root / "a.png"), 3u);
    EXPECT_EQ(shownFor(root / "missing.app"), 4u);
    EXPECT_EQ(shownFor("/System/Applications/System Settings.app"), 5u);
    EXPECT_EQ(shown(service.iconForFileType("png")), 3u);
    EXPECT_EQ(shown(service.iconForFileType("no-such-kind")), 2u);
    EXPECT_EQ(shown(service.iconForContentType("public.jpeg")), 3u);
    EXPECT_EQ(shown(service.iconForContentType("com.example.unknown")), 0u);
    EXPECT_EQ(service.iconForContentType("public.jpeg"), service.iconForContentType("public.jpeg"));
}

TEST_F(FileIcons, OfAnApplicationComeFromItsBundleAndFollowIt)
{
    const std::string app = root.makeFolder("A.app");
    const auto writeInfo = [&](const std::string& icon) {
        root.write("A.app/Contents/Info.plist", "<plist version=\"1.0\"><dict><key>CFBundleIconFile</key><string>" +
                                                    icon + "</string></dict></plist>");
    };
    addPicture("A.app/Contents/Resources/one.png", 64, 0xff0000a1);
    writeInfo("one");
    const ImageRef first = service.iconForFile(app);
    EXPECT_EQ(shown(first), 0xa1u);
    EXPECT_EQ(first->size(), (Size{32, 32}));
    EXPECT_EQ(service.iconForFile(app + "/"), first);
    addPicture("A.app/Contents/Resources/other.png", 64, 0xff0000b2);
    writeInfo("other.png");
    EXPECT_EQ(shownFor(app), 0xb2u);
    writeInfo("nothing");
    EXPECT_EQ(shownFor(app), 4u);
}

TEST_F(FileIcons, AreAbsentWithoutATheme)
{
    const Shared<IconTheme>::Override none(std::make_shared<IconTheme>(std::vector<std::string>{}, "hicolor"));
    ThemeIconService bare;
    EXPECT_FALSE(bare.iconForFile(root.path()));
    EXPECT_FALSE(bare.iconForFileType("png"));
    EXPECT_FALSE(bare.imageFromFile(Url::fromPath(root / "missing")));
}

}  // namespace
