#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "tests/platform/ui/Pixels.h"

using namespace Platform;

namespace {

constexpr std::uint32_t gray = 0xff808080;

TEST(ImageFocus, LeavesNoContextForSizesThatCannotBeDrawn)
{
    const double nan = std::nan("");
    for (const Size size : {Size{0, 0}, Size{0, 9}, Size{nan, 5}, Size{5, nan}, Size{-3, 4}, Size{1e9, 1e9},
                            Size{40000, 1}, Size{std::numeric_limits<double>::infinity(), 1}}) {
        const auto outer = Tests::plainImage(2, 2, gray);
        ImageFocus outerFocus(outer);
        const auto image = std::make_shared<Image>(size);
        {
            ImageFocus focus(image);
            EXPECT_EQ(GraphicsContext::current(), nullptr) << size.width << " x " << size.height;
            BezierPath::rect(Rect::of(0, 0, 9, 9)).fill();
        }
        EXPECT_FALSE(image->bitmap().has_value());
        EXPECT_EQ(GraphicsContext::current(), outerFocus.context());
    }
}

TEST(ImageFocus, KeepsTheFinestRepresentationsPixels)
{
    const auto image = std::make_shared<Image>(Tests::bitmapOf({{gray, gray}, {gray, gray}}), Size{1, 1});
    image->addRepresentation(Tests::bitmapOf({{gray}}));
    Tests::fill(image, Color::white(), Rect::of(0, 0, 0.5, 1));
    EXPECT_EQ(Tests::rowsOf(image), Tests::Rows(2, {0xffffffffu, gray}));
    EXPECT_EQ(image->representations().size(), 1u);
}

TEST(ImageDrawing, ReadsThePartOfTheSourceScalesAndFades)
{
    const auto source = Tests::imageOf({{1u << 24, 2u << 24}, {3u << 24, 4u << 24}});
    const auto target = std::make_shared<Image>(Size{4, 2});
    {
        ImageFocus focus(target);
        focus.context()->setInterpolation(ImageInterpolation::none);
        source->draw(Rect::of(0, 0, 4, 2), Rect::of(1, 0, 1, 1), CompositingOperation::copy, 1);
    }
    EXPECT_EQ(Tests::rowsOf(target), Tests::Rows(2, std::vector(4, 2u << 24)));
    {
        ImageFocus focus(target);
        Tests::plainImage(4, 2, 0xffffffff)->draw(Point{}, {}, CompositingOperation::copy, 0.5);
    }
    EXPECT_NEAR(int(Tests::rowsOf(target)[0][0] >> 24), 128, 1);
}

// Averages, not samples: what is shrunk to one pixel is half white.
TEST(ImageDrawing, HighInterpolationAveragesWhatItShrinks)
{
    const auto wide = Tests::imageOf({std::vector<std::uint32_t>(400, 0xff000000)});
    Tests::fill(wide, Color::white(), Rect::of(0, 0, 200, 1));
    EXPECT_NEAR(int(wide->bitmap(1, 1)->pixel(0, 0) & 0xff), 128, 2);
}

TEST(Bitmap, CopiesShareUntilOneIsWritten)
{
    Bitmap first = Tests::bitmapOf({{1, 2}});
    const Bitmap second = first;
    first.mutablePixels()[0] = 9;
    EXPECT_EQ(second.pixel(0, 0), 1u);
    EXPECT_EQ(first.pixel(0, 0), 9u);
}

TEST(Image, ADrawingIsRedrawnAtTheResolutionAsked)
{
    Image image(Size{2, 2}, [](GraphicsContext& context) {
        context.setFillColor(Color::black());
        context.fill(Rect::of(0, 0, 1, 2), CompositingOperation::sourceOver);
    });
    EXPECT_EQ(Tests::rowsOf(*image.bitmap(8, 1)),
              (Tests::Rows{{0xff000000, 0xff000000, 0xff000000, 0xff000000, 0, 0, 0, 0}}));
    image.setSize({4, 1});
    EXPECT_EQ(Tests::rowsOf(*image.bitmap()), (Tests::Rows{{0xff000000, 0xff000000, 0, 0}}));
}

}  // namespace
