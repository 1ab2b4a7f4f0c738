#include <cmath>

#include <gtest/gtest.h>

#include "platform/ui/Appearance.h"
#include "tests/platform/ui/Pixels.h"

using namespace Platform;

namespace {

TEST(Color, ConvertsBetweenSpacesWithoutChangingComponents)
{
    const Color gray = Color::calibratedWhite(0.25, 0.5);
    EXPECT_EQ(gray.usingColorSpace(ColorSpace::deviceRGB), Color::deviceRGB(0.25, 0.25, 0.25, 0.5));
    const Color rgb = Color::calibratedRGB(0.1, 0.2, 0.3);
    EXPECT_EQ(rgb.usingColorSpace(ColorSpace::deviceRGB), Color::deviceRGB(0.1, 0.2, 0.3));
    EXPECT_EQ(rgb.usingColorSpace(ColorSpace::pattern), std::nullopt);
    EXPECT_EQ(Color::pattern(Tests::plainImage(1, 1, 1)).usingColorSpace(ColorSpace::deviceRGB), std::nullopt);
}

TEST(Color, LabelsFollowTheAppearanceThatIsDrawnFor)
{
    Appearance::Drawing dark{Appearance(Appearance::highContrastDarkAqua)};
    EXPECT_EQ(Color::labelColor().red(), 1);
    Appearance::Drawing light{Appearance(Appearance::aqua)};
    EXPECT_EQ(Color::labelColor().red(), 0);
}

TEST(Color, PixelsArePremultipliedAndLimited)
{
    EXPECT_EQ(Color::deviceRGB(1, 0.5, 0).premultipliedPixel(), 0xffff8000);
    EXPECT_EQ(Color::deviceRGB(1, 1, 1, 0.5).premultipliedPixel(), 0x80808080);
    EXPECT_EQ(Color::deviceRGB(7, -1, std::nan("")).premultipliedPixel(), 0xffff0000);
}

TEST(Color, PatternsTile)
{
    const auto image = std::make_shared<Image>(Size{4, 1});
    Tests::fill(image, Color::pattern(Tests::imageOf({{0xffff0000, 0xff00ff00}})), Rect::of(0, 0, 4, 1));
    EXPECT_EQ(Tests::rowsOf(image), (Tests::Rows{{0xffff0000, 0xff00ff00, 0xffff0000, 0xff00ff00}}));
}

}  // namespace
