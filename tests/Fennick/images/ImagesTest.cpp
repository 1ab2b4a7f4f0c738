#include <cmath>

#include <gtest/gtest.h>

#include "Fennick/images/Images.h"
#include "Fennick/images/LayerImages.h"
#include "Fennick/images/Tinting.h"
#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

const Color red = Color::calibratedRGB(1, 0, 0);

TEST(Tinting, ColorsOpaquePixelsOfATemplateAndLeavesOtherImagesAlone)
{
    const auto source = Tests::imageOf({{0xff000000, 0x80000000, 0}});
    source->setTemplate(true);
    const auto tinted = Fennick::tinted(source, red);
    EXPECT_EQ(Tests::rowsOf(tinted), (Tests::Rows{{0xffff0000, 0x80800000, 0}}));
    EXPECT_EQ(Tests::rowsOf(source), (Tests::Rows{{0xff000000, 0x80000000, 0}}));
    EXPECT_EQ(Fennick::tinted(tinted, red), tinted) << "no template, so the answer itself";
    EXPECT_EQ(Fennick::tinted(nullptr, red), nullptr);
}

// The symbol's way round must look like the bitmap's.
TEST(Tinting, OfASymbolIsThatOfItsBitmap)
{
    const auto symbol = Fennick::Images::symbol("gauge");
    const auto flat = std::make_shared<Image>(*symbol->bitmap());
    flat->setTemplate(true);
    const auto a = Tests::rowsOf(Fennick::tinted(symbol, red.withAlpha(0.5)));
    const auto b = Tests::rowsOf(Fennick::tinted(flat, red.withAlpha(0.5)));
    ASSERT_FALSE(a.empty());
    ASSERT_EQ(std::pair(a.size(), a[0].size()), std::pair(b.size(), b[0].size()));
    for (std::size_t y = 0; y < a.size(); ++y) {
        for (std::size_t x = 0; x < a.size(); ++x) {
            EXPECT_NEAR(int(a[y][x] >> 16 & 0xff), int(b[y][x] >> 16 & 0xff), 2) << x << "," << y;
            EXPECT_NEAR(int(a[y][x] >> 24), int(b[y][x] >> 24), 1) << x << "," << y;
        }
    }
    symbol->setSize({30, 20});
    EXPECT_EQ(Fennick::tinted(symbol, red)->size(), symbol->size());
}

TEST(Images, SymbolsTakeColorAndSize)
{
    const auto symbol = Fennick::Images::symbol("circle.fill", red, 20, FontWeight::bold);
    EXPECT_EQ(symbol->size(), (Size{25, 25}));
    EXPECT_EQ(symbol->bitmap()->pixel(12, 12), 0xffff0000);
    EXPECT_TRUE(Fennick::Images::symbol("circle.fill", 20, FontWeight::bold)->isTemplate());
    EXPECT_DEATH(Fennick::Images::symbol("nothing.here"), "Fennick/Images: Fatal error");
}

TEST(Images, NamedOnesComeFromTheApplicationsResources)
{
    Tests::TemporaryDirectory folder;
    folder.write("A.app/Contents/Resources/logo.png", Tests::pngOf({{0xff010203}}));
    folder.write("A.app/Contents/Info.plist", "");
    const Shared<Bundle>::Override bundle(Bundle::open(folder / "A.app"));
    for (const char* const name : {"logo", "logo.png"}) {
        EXPECT_EQ(Tests::rowsOf(Fennick::Images::image(name)), (Tests::Rows{{0xff010203}})) << name;
    }
    EXPECT_DEATH(Fennick::Images::image("other"), "Fennick/Images: Fatal error");
}

TEST(LayerImages, ShowTheLayerAtItsFrameSizeAndTheColorOfOnePixel)
{
    constexpr std::uint32_t g = 0xff00ff00, m = 0xff007f80;
    Layer layer;
    layer.setFrame(Rect::of(5, 7, 4.9, 3));
    layer.setBackgroundColor(Color::calibratedRGB(0, 1, 0));
    const auto part = std::make_shared<Layer>();
    part->setFrame(Rect::of(1, 1, 2, 9));
    part->setBackgroundColor(Color::calibratedRGB(0, 0, 1, 0.5));
    layer.addSublayer(part);
    const auto image = Fennick::snapshot(layer);
    EXPECT_EQ(image->size(), (Size{4.9, 3}));
    EXPECT_EQ(Tests::rowsOf(image), (Tests::Rows{{g, g, g, g}, {g, m, m, g}, {g, m, m, g}}));
    EXPECT_EQ(Fennick::color(layer, 2, 2), Color::deviceRGB(0, 0x7f / 255.0, 0x80 / 255.0, 1));
    for (const double x : {-1.0, 5.0, std::nan(""), 1e300}) EXPECT_EQ(Fennick::color(layer, x, 0).alpha(), 0) << x;

    layer.setFrame(Rect::of(0, 0, 20, 20));
    layer.setCornerRadius(10);
    layer.setBackgroundColor({});
    part->setFrame(Rect::of(0, 0, 20, 20));
    EXPECT_NE(Fennick::color(layer, 1, 1).alpha(), 0);
    layer.setMasksToBounds(true);
    EXPECT_EQ(Fennick::color(layer, 1, 1).alpha(), 0);
    layer.setFrame(Rect::of(0, 0, 0, 4));
    EXPECT_FALSE(Fennick::snapshot(layer)->bitmap());
    layer.setFrame(Rect::of(0, 0, 1e7, 4));
    EXPECT_DEATH(Fennick::snapshot(layer), "Fennick/Layer: Fatal error: The layer's frame");
}

}  // namespace
