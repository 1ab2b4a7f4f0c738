#include <cmath>

#include <gtest/gtest.h>

#include "tests/platform/ui/Pixels.h"

using namespace Platform;
using Tests::Rows;

namespace {

constexpr std::uint32_t red = 0xffff0000, blue = 0xff0000ff, gray = 0xff808080, white = 0xffffffff, none = 0;

// Porter and Duff's rules, read off their table.
TEST(Compositing, FollowsTheRuleOfItsName)
{
    using enum CompositingOperation;
    // Red drawn over: blue, nothing; nothing drawn over: blue.
    const std::pair<CompositingOperation, std::vector<std::uint32_t>> cases[] = {
        {clear, {none, none, none}},
        {copy, {red, red, none}},
        {sourceOver, {red, red, blue}},
        {sourceIn, {red, none, none}},
        {sourceOut, {none, red, none}},
        {sourceAtop, {red, none, blue}},
        {destinationOver, {blue, red, blue}},
        {destinationIn, {blue, none, none}},
        {destinationOut, {none, none, blue}},
        {destinationAtop, {blue, red, none}},
        {xor_, {none, red, blue}},
    };
    for (const auto& [operation, expected] : cases) {
        const auto below = Tests::imageOf({{blue, none, blue}});
        {
            ImageFocus focus(below);
            Tests::imageOf({{red, red, none}})->draw(Point{}, {}, operation, 1);
        }
        EXPECT_EQ(Tests::rowsOf(below), Rows{expected}) << static_cast<int>(operation);
    }
}

TEST(SourceAtopFill, MixesByTheOpacityBelowAndKeepsIt)
{
    const struct {
        std::uint32_t below;
        Color color;
        std::uint32_t expected;
    } cases[] = {
        {0xffffffff, Color::deviceRGB(7, -1, std::nan("")), 0xffff0000},
        {0x01010101, Color::calibratedRGB(0, 1, 0), 0x01000100},
        {0x00000000, Color::calibratedRGB(1, 1, 1), 0x00000000},
        {0xff000000, Color::calibratedRGB(1, 1, 1, 128 / 255.0), 0xff808080},
        {0x80000000, Color::calibratedRGB(1, 1, 1, 128 / 255.0), 0x80404040},
        {0xff336699, Color::clear(), 0xff336699},
    };
    for (const auto& each : cases) {
        const auto image = Tests::plainImage(21, 2, each.below);
        Tests::fill(image, each.color, Rect::of(0, 0, 21, 2), CompositingOperation::sourceAtop);
        EXPECT_EQ(Tests::rowsOf(image), Rows(2, std::vector(21, each.expected))) << std::hex << each.below;
    }
}

TEST(ImageDrawing, ReadsThePartOfTheSourceScalesAndFades)
{
    const auto source = Tests::imageOf({{1u << 24, 2u << 24}, {3u << 24, 4u << 24}});
    const auto target = std::make_shared<Image>(Size{4, 2});
    {
        ImageFocus focus(target);
        focus.context()->setInterpolation(ImageInterpolation::none);
        source->draw(Rect::of(0, 0, 4, 1), Rect::of(1, 0, 1, 1), CompositingOperation::copy, 1);
        Tests::plainImage(4, 1, white)->draw(Point{0, 1}, {}, CompositingOperation::copy, 0.5);
    }
    const Rows rows = Tests::rowsOf(target);
    EXPECT_EQ(rows[0], std::vector(4, 2u << 24));
    EXPECT_NEAR(int(rows[1][0] >> 24), 128, 1);
}

TEST(Image, KeepsTheFinestPixelsItHasWhenDrawnOnAndIsRedrawnAtTheResolutionAsked)
{
    const auto fine = std::make_shared<Image>(Tests::bitmapOf({{gray, gray}, {gray, gray}}), Size{1, 1});
    fine->addRepresentation(Tests::bitmapOf({{gray}}));
    Tests::fill(fine, Color::white(), Rect::of(0, 0, 0.5, 1));
    EXPECT_EQ(Tests::rowsOf(fine), Rows(2, {white, gray}));

    Image drawing(Size{2, 2}, [](GraphicsContext& context) {
        context.setFillColor(Color::calibratedRGB(0, 0, 1));
        context.fill(Rect::of(0, 0, 1, 2), CompositingOperation::sourceOver);
    });
    EXPECT_EQ(Tests::rowsOf(*drawing.bitmap(6, 1)), (Rows{{blue, blue, blue, none, none, none}}));
    drawing.setSize({4, 1});
    EXPECT_EQ(Tests::rowsOf(*drawing.bitmap()), (Rows{{blue, blue, none, none}}));
}

}  // namespace
