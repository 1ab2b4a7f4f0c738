#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/ui/ImageCodec.h"
#include "tests/platform/ui/HeicSample.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;

namespace {

std::span<const std::byte> bytes(const std::string& text)
{
    return std::as_bytes(std::span(text));
}

std::string encoded(int width, int height, const char* format)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return content.toStdString();
}

std::string entry(const std::string& type, const std::string& content)
{
    std::string length(4, '\0');
    for (int i = 0; i < 4; ++i) length[std::size_t(i)] = char((content.size() + 8) >> (24 - 8 * i) & 0xff);
    return type + length + content;
}

// Three planes of one run each: packed runs are at most 130 long.
std::string packedPlane(char value, int count)
{
    std::string packed;
    for (; count > 0; count -= 130) packed += {static_cast<char>(std::min(count, 130) + 125), value};
    return packed;
}

std::string packedColors(int side, char red, char green, char blue)
{
    return packedPlane(red, side * side) + packedPlane(green, side * side) + packedPlane(blue, side * side);
}

TEST(ImageCodec, KnowsTheUsualKindsUpToFiftyMegapixels)
{
    for (const char* format : {"png", "jpg", "bmp", "ppm", "tiff", "webp", "ico"}) {
        const ImageRef image = decodeImage(bytes(encoded(16, 8, format)));
        ASSERT_TRUE(image) << format;
        EXPECT_EQ(image->size(), (Size{16, 8})) << format;
    }
    EXPECT_TRUE(decodeImage(bytes("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='7'/>")));
    EXPECT_TRUE(decodeImage(bytes(encoded(8660, 5774, "jpg"))));
}

TEST(ImageCodec, ReadsHeic)
{
    const std::string content =
        QByteArray::fromBase64({Tests::heicSample.data(), Tests::heicSample.size()}).toStdString();
    const ImageRef image = decodeImage(bytes(content));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{64, 64}));
    for (const auto& [x, red] : {std::pair{8, 200}, {56, 20}}) {
        const std::uint32_t pixel = image->bitmap()->pixel(x, 30);
        EXPECT_NEAR(int(pixel >> 16 & 0xff), red, 2);
        EXPECT_NEAR(int(pixel >> 8 & 0xff), 100, 2);
    }
    for (std::size_t size = 0; size < content.size(); size += 37) {
        EXPECT_FALSE(decodeImage(bytes(content.substr(0, size)))) << size;
    }
}

TEST(ImageCodec, BrokenFilesAreNoImagesNorAreSizesThatNoBitmapMayHave)
{
    const std::string png = encoded(64, 64, "png"), jpeg = encoded(64, 64, "jpg");
    const std::string cases[] = {"",
                                 "no picture",
                                 jpeg.substr(0, jpeg.size() / 2),
                                 png.substr(0, 8),
                                 entry("icns", ""),
                                 entry("icns", entry("ic07", "junk")),
                                 entry("icns", "ic07\xff\xff\xff\xff"),
                                 entry("icns", entry("is32", packedColors(16, 1, 2, 3).substr(0, 9))),
                                 "P6 32000 32000 255 ",  // asked before a pixel is decoded
                                 "P6 40000 1 255 " + std::string(120000, 'x')};
    for (const std::string& content : cases) EXPECT_FALSE(decodeImage(bytes(content))) << content.substr(0, 20);
    Tests::TemporaryDirectory folder;
    ::mkfifo((folder / "pipe").c_str(), 0600);
    for (const std::string& path : {folder.path(), folder / "missing.png", std::string("/dev/zero"), folder / "pipe"}) {
        EXPECT_FALSE(decodeImageFile(Url::fromPath(path))) << path;
    }
    EXPECT_TRUE(decodeImageFile(Url::fromPath(folder.write("caf\xe9", png))));
}

TEST(IconSet, ShowsTheLargestEntryThatDecodes)
{
    const std::string small = entry("is32", packedColors(16, 10, 20, 30)) + entry("s8mk", std::string(256, '\x80'));
    const struct {
        std::string entries;
        int side;
        std::uint32_t pixel;
    } cases[] = {
        {small, 16, 0x80050a0f},
        {small + entry("ic10", "damaged") + entry("ic07", encoded(128, 128, "png")), 128, 0xffff0000},
        {entry("ic04", "ARGB" + packedPlane('\xff', 256) + packedColors(16, 4, 5, 6)), 16, 0xff040506},
        {entry("it32", std::string(4, '\0') + packedColors(128, 7, 8, 9)), 128, 0xff070809},
    };
    for (const auto& each : cases) {
        const ImageRef image = decodeImage(bytes(entry("icns", each.entries)));
        ASSERT_TRUE(image) << each.side;
        EXPECT_EQ(image->bitmap()->width(), each.side);
        EXPECT_EQ(image->bitmap()->pixel(1, 1), each.pixel) << std::hex << image->bitmap()->pixel(1, 1);
    }
}

}  // namespace
