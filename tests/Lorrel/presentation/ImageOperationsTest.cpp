#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "Lorrel/presentation/Appearances.h"
#include "Lorrel/presentation/BezierPaths.h"
#include "Lorrel/presentation/Colors.h"
#include "Lorrel/presentation/ImageOperations.h"
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
    EXPECT_EQ(Tests::rowsOf(source).size(), 100u);
    EXPECT_EQ(Tests::rowsOf(Lorrel::resized(Lorrel::emptyImage(), 2, 1)), (Tests::Rows{{0, 0}}));
    // Averages, not samples: what is shrunk to one pixel is half white.
    std::vector<std::uint32_t> row(400, 0xff000000);
    std::fill_n(row.begin(), 200, 0xffffffff);
    EXPECT_NEAR(int(Tests::rowsOf(Lorrel::resized(Tests::imageOf({row}), 1, 1))[0][0] & 0xff), 128, 2);
    for (const auto& [width, height] :
         {std::pair{0.0, 0.0}, {NAN, 5.0}, {-1.0, 5.0}, {1e9, 1e9}, {40000.0, 1.0}, {double(INFINITY), 1.0}}) {
        EXPECT_FALSE(Lorrel::resized(source, width, height)->bitmap()) << width << " x " << height;
    }
}

TEST(RoundedImage, IsTransparentOutsideTheCornersOnly)
{
    const auto rows = Tests::rowsOf(Lorrel::rounded(Tests::plainImage(40, 20, red), 10, 5));
    for (const auto& [x, y] : {std::pair{0, 0}, {39, 0}, {0, 19}, {39, 19}}) EXPECT_EQ(rows[y][x], 0u) << x;
    for (const auto& [x, y] : {std::pair{12, 0}, {0, 7}, {20, 10}, {5, 3}, {39, 10}}) EXPECT_EQ(rows[y][x], red) << x;
    const auto square = Tests::plainImage(20, 20, red);
    for (const double radius : {0.0, -3.0, std::nan(""), 99.0}) {
        EXPECT_EQ(Tests::rowsOf(Lorrel::rounded(square, radius, radius))[1][1], radius > 0 ? 0 : red) << radius;
    }
}

TEST(HierarchicalColor, IsForSymbols)
{
    const auto symbol = systemSymbol("clock"), picture = Tests::plainImage(1, 1, red);
    const Color color = Color::calibratedRGB(0, 0, 1);
    EXPECT_FALSE(Lorrel::withHierarchicalColor(symbol, color)->isTemplate());
    EXPECT_EQ(Lorrel::withHierarchicalColor(picture, color), picture);
}

TEST(PngData, ReadsBackAndIsWrittenOrLogged)
{
    const auto image = Tests::imageOf({{red, 0x80402010}, {0, 0xff123456}});
    EXPECT_FALSE(Lorrel::pngData(Lorrel::emptyImage()));
    Tests::TemporaryDirectory folder;
    const Tests::ReplacedLog log;
    Lorrel::writePNG(image, Url::fromPath(folder / "a.png"));
    EXPECT_EQ(Tests::rowsOf(Image::fromFile(Url::fromPath(folder / "a.png"))), Tests::rowsOf(image));
    Lorrel::writePNG(Lorrel::emptyImage(), Url::fromPath(folder / "b.png"));
    EXPECT_EQ(Tests::contentOf(folder / "b.png"), "");
    EXPECT_TRUE(log->messages().empty());
    Lorrel::writePNG(image, Url::fromPath(folder / "missing/c.png"));
    EXPECT_EQ(log->count("missing/c.png"), 1u);
}

TEST(Colors, ComeFromTheLowEightBitsAndInvertInDeviceRgb)
{
    EXPECT_EQ(Lorrel::color(256, -1, 511), Color::calibratedRGB(0, 1, 1));
    EXPECT_EQ(Lorrel::color(51, 102, 153, 7.5), Color::calibratedRGB(0.2, 0.4, 0.6, 7.5));
    EXPECT_EQ(Lorrel::inverted(Color::deviceRGB(0.25, 0.5, 1, 0.5)), Color::calibratedRGB(0.75, 0.5, 0, 0.5));
    EXPECT_EQ(Lorrel::inverted(Color::calibratedWhite(0.25, 0.5)), Color::calibratedRGB(0.75, 0.75, 0.75, 0.5));
    EXPECT_EQ(Lorrel::inverted(Color::pattern(Tests::plainImage(1, 1, red))).alpha(), 0);
    std::set<double> reds;
    for (int i = 0; i < 40; ++i) reds.insert(Lorrel::random().red());
    EXPECT_GT(reds.size(), 10u);
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
                 {"VIBRANT DARK", true, false}};
    for (const auto& each : cases) {
        const Appearance::Drawing scope{Appearance(each.name)};
        EXPECT_EQ(Lorrel::isDarkAppearance(), each.sounds) << each.name;
        EXPECT_EQ(Lorrel::isDark(Named{each.name}), each.is) << each.name;
    }
}

TEST(CgPath, WalksTheElementsAndLeavesOutWhatItDoesNotKnow)
{
    BezierPath path;
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
