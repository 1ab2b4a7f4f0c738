#include <gtest/gtest.h>

#include "Lorrel/presentation/PhotoEffect.h"
#include "tests/platform/ui/Pixels.h"

using namespace Platform;
using Lorrel::PhotoEffect;

namespace {

constexpr PhotoEffect effects[] = {PhotoEffect::mono, PhotoEffect::tonal, PhotoEffect::noir};

std::uint32_t gray(std::uint32_t value)
{
    return 0xff000000u | value * 0x010101u;
}

std::uint32_t effectOn(std::uint32_t pixel, PhotoEffect effect)
{
    return Tests::rowsOf(Lorrel::applying(Tests::plainImage(1, 1, pixel), effect))[0][0];
}

TEST(PhotoEffect, KeepsBlackAndWhiteAndNeverFalls)
{
    for (const PhotoEffect effect : effects) {
        EXPECT_EQ(Lorrel::photoEffect(Lorrel::rawValue(effect)), effect);
        EXPECT_EQ(effectOn(gray(0), effect), gray(0));
        std::uint32_t last = 0;
        for (std::uint32_t value = 0; value < 256; ++value) {
            const std::uint32_t result = effectOn(gray(value), effect);
            EXPECT_EQ(result, gray(result & 0xff));
            EXPECT_GE(result & 0xff, std::exchange(last, result & 0xff));
            EXPECT_TRUE(effect != PhotoEffect::mono || last == value) << value;
        }
        EXPECT_EQ(last, 255u);
    }
    EXPECT_FALSE(Lorrel::photoEffect("ciphotoeffectnoir"));
}

TEST(PhotoEffect, HasTheDocumentedTones)
{
    const struct {
        std::uint32_t pixel;
        PhotoEffect effect;
        std::uint32_t expected;
    } cases[] = {
        {0xffff0000, PhotoEffect::mono, gray(54)},   {0xff00ff00, PhotoEffect::mono, gray(182)},
        {0xff0000ff, PhotoEffect::mono, gray(18)},   {gray(128), PhotoEffect::tonal, gray(150)},
        {gray(128), PhotoEffect::noir, gray(128)},   {gray(64), PhotoEffect::noir, gray(43)},
        {gray(192), PhotoEffect::noir, gray(214)},   {0x80808080, PhotoEffect::noir, 0x80808080},
        {0x80000000, PhotoEffect::mono, 0x80000000}, {0x40202020, PhotoEffect::mono, 0x40202020},
        {0x00000000, PhotoEffect::tonal, 0},
    };
    for (const auto& each : cases)
        EXPECT_EQ(effectOn(each.pixel, each.effect), each.expected) << std::hex << each.pixel;
}

// Runs are handled as wholes: one translucent pixel must not change its neighbours.
TEST(PhotoEffect, TreatsEveryPixelAlone)
{
    std::vector<std::uint32_t> row;
    for (std::uint32_t i = 0; i < 3000; ++i) row.push_back(i == 1500 ? 0x7f102030 : 0xff000000u | i * 2654435761u >> 8);
    const auto result = Tests::rowsOf(Lorrel::applying(Tests::imageOf({row}), PhotoEffect::tonal))[0];
    for (std::size_t i = 0; i < row.size(); ++i) EXPECT_EQ(result[i], effectOn(row[i], PhotoEffect::tonal)) << i;
}

TEST(PhotoEffect, KeepsTheSizeInPointsAndNeedsABitmap)
{
    const auto image = std::make_shared<Image>(Tests::bitmapOf({{gray(9), gray(9)}}), Size{1, 0.5});
    EXPECT_EQ(Lorrel::applying(image, PhotoEffect::mono)->size(), (Size{1, 0.5}));
    EXPECT_FALSE(Lorrel::applying(std::make_shared<Image>(Size{5, 5}), PhotoEffect::mono));
    EXPECT_FALSE(Lorrel::applying(nullptr, PhotoEffect::mono));
}

}  // namespace
