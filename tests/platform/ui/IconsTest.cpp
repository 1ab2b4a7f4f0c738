#include <gtest/gtest.h>

#include "platform/runtime/Shared.h"
#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/icons/Symbols.h"
#include "platform/ui/icons/ThemeIconService.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

class Icons : public testing::Test {
protected:
    // Pictures are told apart by the last byte of their pixels.
    void addPicture(const std::string& path, int side, std::uint32_t number)
    {
        root.write(path, Tests::pngOf(Tests::Rows(side, std::vector(side, 0xff000000 | number))));
    }
    // Which picture it is; 0 for none.
    static std::uint32_t shown(const ImageRef& icon) { return icon ? icon->bitmap()->pixel(9, 9) & 0xff : 0; }

    Tests::TemporaryDirectory root;
    ThemeIconService service;
};

TEST_F(Icons, ComeFromTheNearestSizeThenTheParentThenHicolorThenLooseFiles)
{
    root.write("a/Main/index.theme",
               "[Icon Theme]\nName=Main\nInherits=Parent, Main\nDirectories=16,48, big\n"
               "[16]\nSize=16\n[48]\nSize=48\nType=Fixed\n[big]\nSize=64\nType=Scalable\nMinSize=60\nMaxSize=512\n");
    root.write("a/Parent/index.theme", "[Icon Theme]\nInherits=Main\nDirectories=16\n[16]\nSize=16\n");
    root.write("a/hicolor/index.theme", "[Icon Theme]\nDirectories=16\n[16]\nSize=16\n");
    const std::tuple<const char*, int, std::uint32_t> files[] = {
        {"a/Main/16/app.png", 16, 0x16},         {"a/Main/48/app.png", 48, 0x48},
        {"b/Main/big/app.png", 64, 0x64},        {"a/Parent/16/only-parent.png", 16, 0xaa},
        {"a/hicolor/16/fallback.png", 16, 0xbb}, {"b/loose.png", 16, 0xcc}};
    for (const auto& [path, side, number] : files) addPicture(path, side, number);
    root.write("a/Main/16/broken.png", "not a picture");
    IconTheme icons({root / "a", root / "b"}, "Main");
    const std::tuple<const char*, int, std::uint32_t> cases[] = {
        {"app", 16, 0x16},  {"app", 18, 0x16},         {"app", 48, 0x48},      {"app", 256, 0x64},
        {"app", 34, 0x48},  {"only-parent", 16, 0xaa}, {"fallback", 16, 0xbb}, {"loose", 16, 0xcc},
        {"missing", 16, 0}, {"broken", 16, 0},         {"../16/app", 16, 0},   {"", 16, 0}};
    for (const auto& [name, pixels, number] : cases) {
        const ImageRef icon = icons.icon(name, pixels);
        EXPECT_EQ(shown(icon), number) << name << " " << pixels;
        EXPECT_EQ(icon ? icon->size().width : pixels, pixels) << name;
    }
    EXPECT_EQ(icons.icon(std::vector<std::string>{"missing", "app"}, 16), icons.icon("app", 16)) << "remembered";
}

TEST_F(Icons, ShowFilesAndDevicesByTheirKinds)
{
    std::uint32_t number = 0;
    for (const char* name : {"folder", "text-x-generic", "image-x-generic", "application-x-executable",
                             "preferences-system", "computer", "phone"}) {
        addPicture(std::string("themes/hicolor/32/") + name + ".png", 32, ++number);
    }
    root.write("themes/hicolor/index.theme", "[Icon Theme]\nDirectories=32\n[32]\nSize=32\n");
    addPicture("a.png", 4, 0xff);
    root.write("notes.txt", "text");
    root.makeFolder("A.app");
    using Folders = std::vector<std::string>;
    const Shared<IconTheme>::Override theme(std::make_shared<IconTheme>(Folders{root / "themes"}, "hicolor"));

    const std::pair<std::string, std::uint32_t> files[] = {
        {root.path(), 1},          {root / "notes.txt", 2}, {root / "a.png", 3},
        {root / "missing.app", 4}, {root / "A.app", 4},     {"/System/Applications/System Settings.app", 5}};
    for (const auto& [path, expected] : files) EXPECT_EQ(shown(service.iconForFile(path)), expected) << path;
    EXPECT_EQ(shown(service.iconForFileType("png")), 3u);
    EXPECT_EQ(shown(service.iconForFileType("no-such-kind")), 2u);
    const std::pair<const char*, std::uint32_t> types[] = {{"public.jpeg", 3},
                                                           {"com.example.unknown", 0},
                                                           {"com.apple.macmini-2018", 6},
                                                           {"com.apple.macbookpro-14", 6},
                                                           {"com.apple.iphone-15-pro", 7},
                                                           {"com.apple.watch-u-8", 0}};
    for (const auto& [type, expected] : types) EXPECT_EQ(shown(service.iconForContentType(type)), expected) << type;

    const Shared<IconTheme>::Override none(std::make_shared<IconTheme>(Folders(), "hicolor"));
    EXPECT_FALSE(ThemeIconService().iconForFileType("png"));
}

TEST_F(Icons, OfAnApplicationComeFromItsBundleAndFollowIt)
{
    const std::string app = root.makeFolder("A.app");
    for (const auto& [file, icon, number] : {std::tuple("one.png", "one", 1u), {"other.png", "other.png", 2u}}) {
        addPicture(std::string("A.app/Contents/Resources/") + file, 64, number);
        root.write("A.app/Contents/Info.plist", R"(<plist version="1.0"><dict><key>CFBundleIconFile</key><string>)" +
                                                    std::string(icon) + "</string></dict></plist>");
        const ImageRef shownIcon = service.iconForFile(app);
        EXPECT_EQ(shown(shownIcon), number);
        EXPECT_EQ(shownIcon->size(), (Size{32, 32}));
        EXPECT_EQ(service.iconForFile(app + "/"), shownIcon);
    }
}

// The sum of its opacities.
std::uint32_t inkOf(const ImageRef& image)
{
    std::uint32_t ink = 0;
    for (const auto& row : Tests::rowsOf(image)) {
        for (const std::uint32_t pixel : row) ink += pixel >> 24;
    }
    return ink;
}

TEST(Symbols, DrawSomethingMoreWithAHeavierWeightAndPaleTheirLesserParts)
{
    for (const std::string& name : symbolNames()) {
        const ImageRef symbol = systemSymbol(name);
        ASSERT_TRUE(symbol) << name;
        EXPECT_GT(inkOf(symbol), 10u * 255) << name;
    }
    std::uint32_t last = 0;
    for (const auto weight : {FontWeight::thin, FontWeight::regular, FontWeight::black}) {
        const auto ink = inkOf(systemSymbol("plus")->withSymbolConfiguration({.pointSize = 40, .weight = weight}));
        EXPECT_LT(std::exchange(last, ink), ink);
    }
    const Color blue = Color::calibratedRGB(0, 0, 1);
    const Bitmap pixels =
        *systemSymbol("plus.circle")->withSymbolConfiguration({.pointSize = 96, .hierarchicalColor = blue})->bitmap();
    EXPECT_EQ(pixels.pixel(60, 60), 0xff0000ff);
    EXPECT_NEAR(int(pixels.pixel(60, 12) >> 24), 128, 2);
}

}  // namespace
