#include <gtest/gtest.h>

#include "platform/runtime/Shared.h"
#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/icons/Symbols.h"
#include "platform/ui/icons/ThemeIconService.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

class IconThemes : public testing::Test {
protected:
    void addIcon(const std::string& path, int side, std::uint32_t pixel)
    {
        folder.write(path, Tests::pngOf(Tests::Rows(side, std::vector(side, pixel))));
    }
    std::uint32_t pixelOf(const ImageRef& icon) { return icon ? icon->bitmap()->pixel(2, 2) : 0; }

    void SetUp() override
    {
        folder.write(
            "a/Main/index.theme",
            "[Icon Theme]\nName=Main\nInherits=Parent, Main\nDirectories=16,48, big\n"
            "[16]\nSize=16\n[48]\nSize=48\nType=Fixed\n[big]\nSize=64\nType=Scalable\nMinSize=60\nMaxSize=512\n");
        folder.write("a/Parent/index.theme", "[Icon Theme]\nInherits=Main\nDirectories=16\n[16]\nSize=16\n");
        folder.write("a/hicolor/index.theme", "[Icon Theme]\nDirectories=16\n[16]\nSize=16\n");
        addIcon("a/Main/16/app.png", 16, 0xff000016);
        addIcon("a/Main/48/app.png", 48, 0xff000048);
        addIcon("b/Main/big/app.png", 64, 0xff000064);
        addIcon("a/Parent/16/only-parent.png", 16, 0xff0000aa);
        addIcon("a/hicolor/16/fallback.png", 16, 0xff0000bb);
        addIcon("b/loose.png", 16, 0xff0000cc);
        folder.write("a/Main/16/broken.png", "not a picture");
    }

    Tests::TemporaryDirectory folder;
    IconTheme theme{{folder / "a", folder / "b"}, "Main"};
};

TEST_F(IconThemes, ChooseTheNearestSizeThenTheParentThenHicolorThenLooseFiles)
{
    const struct {
        const char* name;
        int pixels;
        std::uint32_t pixel;
    } cases[] = {{"app", 16, 0xff000016},      {"app", 18, 0xff000016},
                 {"app", 48, 0xff000048},      {"app", 256, 0xff000064},
                 {"app", 34, 0xff000048},      {"only-parent", 16, 0xff0000aa},
                 {"fallback", 16, 0xff0000bb}, {"loose", 16, 0xff0000cc},
                 {"missing", 16, 0},           {"broken", 16, 0},
                 {"../16/app", 16, 0},         {"", 16, 0}};
    for (const auto& each : cases) {
        const ImageRef icon = theme.icon(each.name, each.pixels);
        EXPECT_EQ(pixelOf(icon), each.pixel) << each.name << " " << each.pixels;
        EXPECT_EQ(icon ? icon->size().width : each.pixels, each.pixels) << each.name;
    }
    EXPECT_EQ(theme.icon(std::vector<std::string>{"missing", "app"}, 16), theme.icon("app", 16)) << "remembered";
}

TEST_F(IconThemes, ShowDevicesByTheirTypes)
{
    const std::pair<const char*, std::uint32_t> pictures[] = {
        {"computer", 0xff000001}, {"phone", 0xff000002}, {"multimedia-player", 0xff000003}, {"pda", 0xff000004}};
    for (const auto& [name, pixel] : pictures) addIcon("a/Main/48/" + std::string(name) + ".png", 48, pixel);
    const Shared<IconTheme>::Override session(
        std::make_shared<IconTheme>(std::vector<std::string>{folder / "a"}, "Main"));
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"com.apple.macmini-2018", 0xff000001},
        {"com.apple.iphone-15-pro-2", 0xff000002},
        {"com.apple.ipod-touch", 0xff000003},
        {"com.apple.ipad-air-5", 0xff000004},
        {"com.apple.watch-u-8", 0},
        {"com.apple.machine", 0},
        {"com.apple.macbookpro-14", 0xff000001},
    };
    ThemeIconService service;
    for (const auto& [type, pixel] : cases) EXPECT_EQ(pixelOf(service.iconForContentType(type)), pixel) << type;
    addIcon("a/Main/48/computer-laptop.png", 48, 0xff000005);
    const Shared<IconTheme>::Override renewed(
        std::make_shared<IconTheme>(std::vector<std::string>{folder / "a"}, "Main"));
    EXPECT_EQ(pixelOf(ThemeIconService().iconForContentType("com.apple.macbookpro-14")), 0xff000005);
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

TEST(Symbols, EachDrawsSomethingInEveryWeightAndSize)
{
    for (const std::string& name : symbolNames()) {
        const ImageRef symbol = systemSymbol(name);
        ASSERT_TRUE(symbol) << name;
        EXPECT_TRUE(symbol->isTemplate());
        EXPECT_EQ(symbol->size(), (Size{17, 17}));
        EXPECT_GT(inkOf(symbol), 10u * 255) << name;
    }
    EXPECT_FALSE(systemSymbol("no.such.symbol"));
}

TEST(Symbols, HeavierWeightsHaveMoreInkAndConfigurationsAddUp)
{
    std::uint32_t last = 0;
    for (const auto weight : {FontWeight::thin, FontWeight::regular, FontWeight::black}) {
        const auto ink = inkOf(systemSymbol("plus")->withSymbolConfiguration({.pointSize = 40, .weight = weight}));
        EXPECT_LT(std::exchange(last, ink), ink);
    }
    const auto red = systemSymbol("circle.fill")->withSymbolConfiguration({.tint = Color::calibratedRGB(1, 0, 0)});
    const auto large = red->withSymbolConfiguration({.pointSize = 80});
    EXPECT_EQ(large->size(), (Size{100, 100}));
    EXPECT_EQ(large->bitmap()->pixel(50, 50), 0xffff0000);
    EXPECT_FALSE(large->isTemplate());
}

TEST(Symbols, HierarchicalColorPalesTheLesserParts)
{
    const Color blue = Color::calibratedRGB(0, 0, 1);
    const auto folder =
        systemSymbol("plus.circle")->withSymbolConfiguration({.pointSize = 96, .hierarchicalColor = blue});
    const Bitmap pixels = *folder->bitmap();
    EXPECT_EQ(pixels.pixel(60, 60), 0xff0000ff);
    EXPECT_NEAR(int(pixels.pixel(60, 12) >> 24), 128, 2);
}

}  // namespace
