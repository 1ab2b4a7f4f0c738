#include <gtest/gtest.h>

#include "tests/platform/ui/Pixels.h"

using namespace Platform;
using Tests::Rows;

namespace {

constexpr std::uint32_t red = 0xffff0000, blue = 0xff0000ff, none = 0;

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
        {0xffffffff, Color::calibratedRGB(1, 0, 0), 0xffff0000},
        {0x01010101, Color::calibratedRGB(0, 1, 0), 0x01000100},
        {0x00000000, Color::calibratedRGB(1, 1, 1), 0x00000000},
        {0xff000000, Color::calibratedRGB(1, 1, 1, 128 / 255.0), 0xff808080},
        {0x80000000, Color::calibratedRGB(1, 1, 1, 128 / 255.0), 0x80404040},
        {0xff336699, Color::clear(), 0xff336699},
    };
    for (const auto& each : cases) {
        const auto image = Tests::plainImage(3, 2, each.below);
        Tests::fill(image, each.color, Rect::of(0, 0, 3, 2), CompositingOperation::sourceAtop);
        EXPECT_EQ(Tests::rowsOf(image), Rows(2, std::vector(3, each.expected))) << std::hex << each.below;
    }
}

// The fast path covers whole pixels only; the painter does the rest by the same rule.
TEST(SourceAtopFill, IsTheSameThroughAClipAsWithoutOne)
{
    for (const double alpha : {0.0, 0.25, 0.5, 0.75, 1.0}) {
        const Color color = Color::calibratedRGB(0.2, 0.6, 1, alpha);
        const auto fast = Tests::imageOf({{0xff808080, 0x40404040, 0xc0102030, 0}});
        const auto clipped = fast->copy();
        for (const auto& image : {fast, clipped}) {
            ImageFocus focus(image);
            if (image == clipped) BezierPath::rect(Rect::of(-9, -9, 99, 99)).addClip();
            focus.context()->setFillColor(color);
            focus.context()->fill(Rect::of(0, 0, 4, 1), CompositingOperation::sourceAtop);
        }
        const auto a = Tests::rowsOf(fast)[0], b = Tests::rowsOf(clipped)[0];
        for (std::size_t i = 0; i < a.size(); ++i) {
            for (int shift = 0; shift < 32; shift += 8) {
                EXPECT_NEAR(int(a[i] >> shift & 0xff), int(b[i] >> shift & 0xff), 1) << alpha << " " << i;
            }
        }
    }
}

TEST(Clip, FollowsTheWindingRule)
{
    const Rect whole = Rect::of(0, 0, 6, 6);
    for (const bool evenOdd : {true, false}) {
        const auto image = std::make_shared<Image>(whole.size);
        {
            ImageFocus focus(image);
            BezierPath ring = BezierPath::rect(whole);
            ring.append(BezierPath::rect(Rect::of(2, 2, 2, 2)));
            ring.setWindingRule(evenOdd ? WindingRule::evenOdd : WindingRule::nonZero);
            ring.addClip();
            focus.context()->setFillColor(Color::white());
            focus.context()->fill(whole, CompositingOperation::sourceOver);
        }
        const auto rows = Tests::rowsOf(image);
        EXPECT_EQ(rows[0][0], 0xffffffffu);
        EXPECT_EQ(rows[2][2], evenOdd ? 0u : 0xffffffffu);
    }
}

}  // namespace
