// Effects, tinting, scaling, texts and PNG files beside memcpy, ImageMagick and
// the bare calls of the drawing library. Prints one row a path, ours in parts of the peer's.
#include <QBuffer>
#include <QGuiApplication>
#include <QTextLayout>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>

#include <Magick++.h>

#include "Lorrel/presentation/ImageOperations.h"
#include "Lorrel/presentation/PhotoEffect.h"
#include "Lorrel/presentation/TextUtilities.h"
#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/text/AttributedString.h"

using namespace Platform;
using MagickCore::Quantum;

namespace {

constexpr int width = 4000, height = 3000;

using Work = std::function<void()>;

// Both in turn, so that both meet the same machine; the best of nine each.
struct Pair {
    double ours, peer;
};

double once(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

Pair compare(const Work& ours, const Work& peer)
{
    Pair best{1e18, 1e18};
    for (int i = 0; i < 9; ++i) {
        best.peer = std::min(best.peer, once(peer));
        best.ours = std::min(best.ours, once(ours));
    }
    return best;
}

void print(const char* path, const char* peer, Pair time)
{
    std::printf("%-34s %-30s %12.1f us %12.1f us   ours/peer %6.2f\n", path, peer, time.ours, time.peer,
                time.ours / time.peer);
}

Work times(int count, Work work)
{
    return [count, work = std::move(work)] {
        for (int i = 0; i < count; ++i) work();
    };
}

// A picture with structure: neither one colour nor noise.
Bitmap photograph(bool isTranslucent)
{
    Bitmap bitmap = *Bitmap::createUninitialized(width, height);
    std::uint32_t* out = bitmap.mutablePixels();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto alpha = isTranslucent ? static_cast<std::uint32_t>(x + y) & 0xff : 255u;
            const auto part = [alpha](int value) { return (static_cast<std::uint32_t>(value) & 0xff) * alpha / 255; };
            *out++ = alpha << 24 | part(x * y >> 12) << 16 | part(x >> 3) << 8 | part(y >> 2);
        }
    }
    return bitmap;
}

Magick::Image magickImage(const Bitmap& bitmap)
{
    return Magick::Image(static_cast<std::size_t>(width), static_cast<std::size_t>(height), "BGRA", Magick::CharPixel,
                         bitmap.pixels());
}

void comparePixels(const Bitmap& opaque, const Bitmap& translucent)
{
    std::vector<std::uint32_t> copy(opaque.pixelCount());
    const Work copying = [&] { std::memcpy(copy.data(), opaque.pixels(), copy.size() * sizeof(std::uint32_t)); };
    const auto photo = std::make_shared<Image>(opaque), glass = std::make_shared<Image>(translucent);
    const auto stencil = std::make_shared<Image>(translucent);
    stencil->setTemplate(true);
    Magick::Image magick = magickImage(opaque), magickGlass = magickImage(translucent);
    const Work noir = [&] { Lorrel::applying(photo, Lorrel::PhotoEffect::noir); };
    const Work tint = [&] { Lorrel::tinted(stencil, Color::calibratedRGB(0.9, 0.2, 0.1)); };
    const Work magickNoir = [&] {
        Magick::Image result = magick;
        result.grayscale(Magick::Rec709LumaPixelIntensityMethod);
        result.sigmoidalContrast(true, 5, QuantumRange / 2.0);
    };
    const Work magickTint = [&] {
        Magick::Image result = magickGlass;
        result.colorize(100, 100, 100, Magick::ColorRGB(0.9, 0.2, 0.1));
    };
    print("photo effect, 12 megapixels", "memcpy", compare(noir, copying));
    print("the same, all translucent", "memcpy",
          compare([&] { Lorrel::applying(glass, Lorrel::PhotoEffect::noir); }, copying));
    print("photo effect, 12 megapixels", "ImageMagick grayscale, contrast", compare(noir, magickNoir));
    print("tinting, 12 megapixels", "memcpy", compare(tint, copying));
    print("tinting, 12 megapixels", "ImageMagick colorize", compare(tint, magickTint));
}

void compareScaling(const Bitmap& opaque)
{
    const QImage image(reinterpret_cast<const uchar*>(opaque.pixels()), width, height,
                       QImage::Format_ARGB32_Premultiplied);
    const auto photo = std::make_shared<Image>(opaque);
    for (const int target : {100, 1000, 2000}) {
        const auto pair = compare(
            [&] { Lorrel::resized(photo, target, target); },
            [&] { static_cast<void>(image.scaled(target, target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)); });
        print(("resized to " + std::to_string(target) + " square").c_str(), "QImage smooth scaling", pair);
    }
    const auto small = Lorrel::resized(photo, 1000, 750);
    const QImage bare = image.scaled(1000, 750, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    print("PNG data, 1000 x 750", "QImage::save",
          compare([&] { Lorrel::pngData(small); },
                  [&] {
                      QByteArray bytes;
                      QBuffer buffer(&bytes);
                      buffer.open(QIODevice::WriteOnly);
                      bare.save(&buffer, "PNG");
                  }));
}

QSizeF bareTextSize(const std::string& text, const QFont& font, QPaintDevice* device, double maximum)
{
    QTextLayout layout(QString::fromStdString(text), font, device);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    double across = 0, down = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(maximum);
        across = std::max(across, line.naturalTextWidth());
        down += line.height();
    }
    layout.endLayout();
    return {across, down};
}

QByteArray bareFlag(const char* code)
{
    auto units = QString::fromUtf8(code).toUcs4();
    for (auto& unit : units) unit += 127397;
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(units.data()), units.size()).toUtf8();
}

void compareTexts()
{
    std::string text;
    for (int i = 0; i < 40; ++i) text += "measure these words ";
    const Font font = Font::system(13);
    font.capHeight();  // makes the application object
    QFont bare = QGuiApplication::font();
    bare.setPointSizeF(13);
    QImage surface(1, 1, QImage::Format_ARGB32_Premultiplied);
    surface.setDotsPerMeterX(2835);
    surface.setDotsPerMeterY(2835);
    for (const std::string& each : {std::string("42.5 %"), text}) {
        print(("text size, " + std::to_string(each.size()) + " bytes, 200 times").c_str(), "QTextLayout",
              compare(times(200, [&] { Lorrel::TextUtilities::size(each, font, 300, 0); }),
                      times(200, [&] { bareTextSize(each, bare, &surface, 300); })));
    }
    print("flag, 10,000 times", "QString, UTF-32",
          compare(times(10000, [] { Lorrel::TextUtilities::flag("DE"); }), times(10000, [] { bareFlag("DE"); })));
    IconTheme theme({"/usr/share/icons"}, "Adwaita");
    const Work look = [&] { theme.icon("folder", 32); };
    const double first = once(look);
    std::printf("icon lookup: first %.1f us, then %.3f us\n", first, once(times(1000, look)) / 1000);
}

}  // namespace

int main()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Magick::InitializeMagick(nullptr);
    std::printf("%-34s %-30s %15s %15s\n", "path", "peer", "ours", "peer");
    const Bitmap opaque = photograph(false), translucent = photograph(true);
    comparePixels(opaque, translucent);
    compareScaling(opaque);
    compareTexts();
}
