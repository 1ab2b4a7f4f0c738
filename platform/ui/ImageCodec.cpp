#include "platform/ui/ImageCodec.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <cmath>
#include <string>
#include <string_view>

#include "platform/runtime/FileBytes.h"
#include "platform/ui/Image.h"
#include "platform/ui/internal/Containers.h"
#include "platform/ui/internal/QtDrawing.h"

namespace Platform {
namespace {

// A picture file has at most that many bytes.
constexpr std::size_t largestFile = 512 << 20;

QByteArray qtBytes(Bytes content)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(content.data()),
                                   static_cast<qsizetype>(content.size()));
}

Bytes bytesOf(std::string_view content)
{
    return std::as_bytes(std::span(content));
}

// The reader's own limit counts memory in megabytes; ours counts pixels, and is asked before any is decoded.
QImage read(QImageReader& reader)
{
    // Once: the limit is the process's, and pictures are read on any thread.
    [[maybe_unused]] static const bool isUnlimited = (QImageReader::setAllocationLimit(0), true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isValid() && !Bitmap::isPossible(size.width(), size.height())) return {};
    QImage image;
    // A file that breaks off is no picture: false although part of it may stand in the image.
    return reader.read(&image) ? image : QImage();
}

// The JPEG reader fills what is missing of a file with grey and calls that a
// success. A whole file ends with the end mark; an embedded preview's stands in the first half.
bool isBrokenOffJpeg(Bytes content)
{
    const std::string_view text(reinterpret_cast<const char*>(content.data()), content.size());
    if (!text.starts_with("\xff\xd8")) return false;
    const std::size_t end = text.rfind("\xff\xd9");
    return end == std::string_view::npos || end < text.size() / 2;
}

Bitmap decodePicture(Bytes content)
{
    if (isBrokenOffJpeg(content)) return {};
    QByteArray bytes = qtBytes(content);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    return bitmapOf(read(reader));
}

Bitmap decode(Bytes content)
{
    if (isIconSet(content)) return decodeIconSet(content, &decodePicture);
    if (isHeif(content)) return decodeHeif(content);
    return decodePicture(content);
}

// Not the toolkit's reading, which waits on a pipe and knows only names in UTF-8.
std::string contentOf(const Url& file)
{
    if (!file.isFileUrl()) return {};
    auto bytes = readFileBytes(file.path(), largestFile);
    return bytes ? std::move(bytes).value() : std::string();
}

}  // namespace

ImageRef decodeImage(Bytes content)
{
    Bitmap bitmap = decode(content);
    return bitmap.isEmpty() ? nullptr : std::make_shared<Image>(std::move(bitmap));
}

ImageRef decodeImageFile(const Url& file)
{
    return decodeImage(bytesOf(contentOf(file)));
}

std::optional<Bitmap> decodeImageFile(const Url& file, int width, int height)
{
    if (!Bitmap::isPossible(width, height)) return std::nullopt;
    const std::string content = contentOf(file);
    QByteArray bytes = qtBytes(bytesOf(content));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (reader.format() == "svg" || reader.format() == "svgz") reader.setScaledSize({width, height});
    const Bitmap bitmap = reader.canRead() ? bitmapOf(read(reader)) : decode(bytesOf(content));
    if (bitmap.width() == width && bitmap.height() == height) return bitmap;
    return Image(bitmap).bitmap(width, height);
}

std::optional<std::vector<std::byte>> encodePng(const Bitmap& bitmap)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    if (bitmap.isEmpty() || !writer.write(imageView(bitmap))) return std::nullopt;
    const Bytes content = bytesOf({bytes.constData(), std::size_t(bytes.size())});
    return std::vector<std::byte>(content.begin(), content.end());
}

}  // namespace Platform
