#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "Lorrel/presentation/Appearances.h"
#include "Lorrel/presentation/BezierPaths.h"
#include "Lorrel/presentation/Colors.h"
#include "Lorrel/presentation/ImageOperations.h"
#include "platform/runtime/Environment.h"
#include "platform/ui/DesktopAppearance.h"
#include "platform/ui/ImageCodec.h"
#include "platform/ui/icons/Symbols.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

constexpr std::uint32_t red = 0xffff0000;

TEST(ResizedImage, HasTheSizeAndTheContent)
{
    const auto source = Tests::plainImage(200, 100, red);
    const auto small = Lorrel::resized(source, 50);
    EXPECT_EQ(small->size(), (Size{100, 50}));
    EXPECT_EQ(Tests::rowsOf(small), Tests::Rows(50, std::vector(100, red)));
    const auto half = Tests::imageOf({{0xff000000, 0xffffffff}, {0xff000000, 0xffffffff}});
    EXPECT_EQ(Tests::rowsOf(Lorrel::resized(half, 1, 2)), (Tests::Rows{{0xff7f7f7f}, {0xff7f7f7f}}));
    EXPECT_EQ(Tests::rowsOf(source).size(), 100u);
}

TEST(ResizedImage, OfSizesThatCannotBeDrawnHasNoContent)
{
    const auto source = Tests::plainImage(1, 20000, red);
    for (const auto& [width, height] :
         {std::pair{0.0, 0.0}, {std::nan(""), 5.0}, {-1.0, 5.0}, {1e9, 1e9}, {double(INFINITY), 1.0}}) {
        EXPECT_FALSE(Lorrel::resized(source, width, height)->bitmap());
    }
    EXPECT_EQ(Tests::rowsOf(Lorrel::resized(source, 1, 10)), Tests::Rows(10, {red}));
    EXPECT_EQ(Tests::rowsOf(Lorrel::resized(Lorrel::emptyImage(), 2, 1)), (Tests::Rows{{0, 0}}));
}

TEST(RoundedImage, IsTransparentOutsideTheCornersOnly)
{
    const auto rows = Tests::rowsOf(Lorrel::rounded(Tests::plainImage(40, 20, red), 10, 5));
    for (const auto& [x, y] : {std::pair{0, 0}, {39, 0}, {0, 19}, {39, 19}}) EXPECT_EQ(rows[y][x], 0u) << x;
    for (const auto& [x, y] : {std::pair{12, 0}, {0, 7}, {20, 10}, {5, 3}, {39, 10}}) EXPECT_EQ(rows[y][x], red) << x;
    const auto square = Tests::plainImage(4, 4, red);
    for (const double radius : {0.0, -3.0, std::nan("")}) {
        EXPECT_EQ(Tests::rowsOf(Lorrel::rounded(square, radius, radius)), Tests::rowsOf(square)) << radius;
    }
    EXPECT_EQ(Tests::rowsOf(Lorrel::rounded(Tests::plainImage(20, 20, red), 99, 99))[1][1], 0u);
}

TEST(TintedImage, TakesTheAccentColor)
{
    const auto image = Tests::plainImage(2, 2, 0xff000000);
    EXPECT_EQ(Lorrel::tintedWithAccentColor(image), image);
    image->setTemplate(true);
    const std::uint32_t accent = DesktopAppearance::shared().accentColor().premultipliedPixel();
    EXPECT_EQ(Tests::rowsOf(Lorrel::tintedWithAccentColor(image)), Tests::Rows(2, {accent, accent}));
}

struct OldVersion final : OperatingSystemVersion {
    int major() const override { return 11; }
};

TEST(HierarchicalColor, IsForSymbolsFromVersionTwelveOn)
{
    const auto symbol = systemSymbol("clock");
    const Color color = Color::calibratedRGB(0, 0, 1);
    EXPECT_FALSE(Lorrel::withHierarchicalColor(symbol, color)->isTemplate());
    const auto picture = Tests::plainImage(1, 1, red);
    EXPECT_EQ(Lorrel::withHierarchicalColor(picture, color), picture);
    const Shared<OperatingSystemVersion>::Override old(std::make_shared<OldVersion>());
    EXPECT_EQ(Lorrel::withHierarchicalColor(symbol, color), symbol);
}

TEST(PngData, ReadsBackAndIsWrittenOrLogged)
{
    const auto image = Tests::imageOf({{red, 0x80402010}, {0, 0xff123456}});
    EXPECT_EQ(Tests::rowsOf(decodeImage(*Lorrel::pngData(image))), Tests::rowsOf(image));
    EXPECT_FALSE(Lorrel::pngData(Lorrel::emptyImage()));
    EXPECT_EQ(Lorrel::emptyImage(), Lorrel::emptyImage());
    Tests::TemporaryDirectory folder;
    const Tests::ReplacedLog log;
    Lorrel::writePNG(image, Url::fromPath(folder / "a.png"));
    EXPECT_EQ(Tests::rowsOf(Image::fromFile(Url::fromPath(folder / "a.png"))), Tests::rowsOf(image));
    Lorrel::writePNG(Lorrel::emptyImage(), Url::fromPath(folder / "b.png"));
    EXPECT_EQ(Tests::contentOf(folder / "b.png"), "");
    EXPECT_TRUE(log->messages().empty());
    Lorrel::writePNG(image, Url::fromPath(folder / "missing/c.png"));
    EXPECT_EQ(log->count("missing/c.png"), 1u);
    Lorrel::writePNG(image, *Url::parse("https://example.com" + (folder / "d.png")));
    EXPECT_EQ(Tests::contentOf(folder / "d.png"), "");
    EXPECT_EQ(log->count("example.com"), 1u);
}

TEST(Colors, ComeFromTheLowEightBitsAndInvertInDeviceRgb)
{
    EXPECT_EQ(Lorrel::color(256, -1, 511), Color::calibratedRGB(0, 1, 1));
    EXPECT_EQ(Lorrel::color(51, 102, 153, 7.5), Color::calibratedRGB(0.2, 0.4, 0.6, 7.5));
    EXPECT_EQ(Lorrel::inverted(Color::deviceRGB(0.25, 0.5, 1, 0.5)), Color::calibratedRGB(0.75, 0.5, 0, 0.5));
    EXPECT_EQ(Lorrel::inverted(Color::pattern(Tests::plainImage(1, 1, red))).alpha(), 0);
}

TEST(Colors, RandomOnesAreOpaqueBytesAndDiffer)
{
    std::set<double> seen;
    for (int i = 0; i < 40; ++i) {
        const Color color = Lorrel::random();
        EXPECT_EQ(color.alpha(), 1);
        for (const double part : {color.red(), color.green(), color.blue()}) {
            EXPECT_NEAR(part * 255, std::round(part * 255), 1e-9);
            seen.insert(part);
        }
    }
    EXPECT_GT(seen.size(), 40u);
}

struct Named {
    Appearance effectiveAppearance() const { return Appearance(name); }
    std::string name;
};

TEST(Appearances, AreDarkByTheWordOrByTheExactName)
{
    const struct {
        std::string name;
        bool sounds, is;
    } cases[] = {{Appearance::aqua, false, false},
                 {Appearance::darkAqua, true, true},
                 {Appearance::highContrastDarkAqua, true, false},
                 {"VIBRANT DARK", true, false},
                 {"", false, false}};
    for (const auto& each : cases) {
        const Appearance::Drawing scope{Appearance(each.name)};
        EXPECT_EQ(Lorrel::isDarkAppearance(), each.sounds) << each.name;
        EXPECT_EQ(Lorrel::isDark(Named{each.name}), each.is) << each.name;
        const Shared<OperatingSystemVersion>::Override old(std::make_shared<OldVersion>());
        EXPECT_FALSE(Lorrel::isDarkAppearance());
    }
    Appearance::setCurrent(Appearance(Appearance::darkAqua));
    const Shared<OperatingSystemVersion>::Override old(std::make_shared<OldVersion>());
    EXPECT_TRUE(Lorrel::isDarkAppearance());
    Appearance::resetCurrent();
}

TEST(CgPath, WalksTheElementsAndLeavesOutWhatItDoesNotKnow)
{
    BezierPath path;
    EXPECT_TRUE(Lorrel::cgPath(path).isEmpty());
    path.move({1, 2}).line({3, 4}).quadraticCurve({9, 9}, {8, 8}).curve({5, 6}, {7, 8}, {9, 10}).close();
    path.setWindingRule(WindingRule::evenOdd);
    GraphicsPath expected;
    expected.moveTo({1, 2});
    expected.addLineTo({3, 4});
    expected.addCurveTo({5, 6}, {7, 8}, {9, 10});
    expected.closeSubpath();
    EXPECT_EQ(Lorrel::cgPath(path), expected);
}

}  // namespace
