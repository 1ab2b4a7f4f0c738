// Effects, tinting, scaling, texts and PNG files beside memcpy, ImageMagick and
// the bare calls of the drawing library.
#include <QBuffer>
#include <QGuiApplication>
#include <QTextLayout>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

#include <Magick++.h>

#include "Lorrel/presentation/ImageOperations.h"
#include "Lorrel/presentation/PhotoEffect.h"
#include "Lorrel/presentation/TextUtilities.h"
#include "benchmarks/Interleaved.h"
#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/text/AttributedString.h"

using namespace Platform;
using MagickCore::Quantum;

namespace {

constexpr int width = 4000, height = 3000;

using Work = std::function<void()>;

constexpr int rounds = 9;

void compare(const std::string& what, const std::string& peer, const Work& ours, const Work& theirs)
{
    Bench::compare(what, {{"ours", ours}, {peer, theirs}}, rounds);
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
    const Work noirGlass = [&] { Lorrel::applying(glass, Lorrel::PhotoEffect::noir); };
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
    compare("photo effect on 12 megapixels", "memcpy", noir, copying);
    compare("photo effect on 12 translucent megapixels", "memcpy", noirGlass, copying);
    compare("photo effect on 12 megapixels", "ImageMagick grayscale and contrast", noir, magickNoir);
    compare("tinting 12 megapixels", "memcpy", tint, copying);
    compare("tinting 12 megapixels", "ImageMagick colorize", tint, magickTint);
}

void compareScaling(const Bitmap& opaque)
{
    const QImage image(reinterpret_cast<const uchar*>(opaque.pixels()), width, height,
                       QImage::Format_ARGB32_Premultiplied);
    const auto photo = std::make_shared<Image>(opaque);
    for (const int target : {100, 1000, 2000}) {
        compare(
            "resized to " + std::to_string(target) + " square", "QImage smooth scaling",
            [&] { Lorrel::resized(photo, target, target); },
            [&] { Bench::keep(image.scaled(target, target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)); });
    }
    const auto small = Lorrel::resized(photo, 1000, 750);
    const QImage bare = image.scaled(1000, 750, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    compare(
        "PNG data of 1000 x 750", "QImage::save", [&] { Lorrel::pngData(small); },
        [&] {
            QByteArray bytes;
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::WriteOnly);
            bare.save(&buffer, "PNG");
        });
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
        compare(
            "text size of " + std::to_string(each.size()) + " bytes", "QTextLayout",
            [&] { Lorrel::TextUtilities::size(each, font, 300, 0); },
            [&] { Bench::keep(bareTextSize(each, bare, &surface, 300)); });
    }
    compare(
        "flag", "QString from UTF-32", [] { Bench::keep(Lorrel::TextUtilities::flag("DE")); },
        [] { Bench::keep(bareFlag("DE")); });
}

// Beside the first lookup, which reads folders.
void compareIcons()
{
    IconTheme theme({"/usr/share/icons"}, "Adwaita");
    const Bench::Contestant look("look", [&] { theme.icon("folder", 32); });
    const double first = Bench::nanosecondsEach(look, 1);
    Bench::ratio("icon looked up again", "the first lookup", Bench::nanosecondsEach(look, 1000), first, "ns");
}

}  // namespace

int main()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Magick::InitializeMagick(nullptr);
    const Bitmap opaque = photograph(false), translucent = photograph(true);
    comparePixels(opaque, translucent);
    compareScaling(opaque);
    compareTexts();
    compareIcons();
}
