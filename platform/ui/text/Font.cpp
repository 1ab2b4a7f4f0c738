#include "platform/ui/text/Font.h"

#include <QFontMetricsF>
#include <array>
#include <optional>

#include "platform/ui/internal/GuiApplication.h"
#include "platform/ui/internal/QtText.h"

namespace Platform {
namespace {

constexpr double usualSize = 13;
constexpr double largestSize = 10'000;
constexpr std::array qtWeights{QFont::Thin,     QFont::ExtraLight, QFont::Light,     QFont::Normal, QFont::Medium,
                               QFont::DemiBold, QFont::Bold,       QFont::ExtraBold, QFont::Black};

QFontMetricsF metricsOf(const Font& font)
{
    ensureGuiApplication();
    return QFontMetricsF(qtFont(font), &measuringSurface());
}

QFont made(const Font& font, QFont base)
{
    if (!font.family().empty()) base.setFamilies({QString::fromStdString(font.family())});
    base.setPointSizeF(font.pointSize());
    base.setWeight(qtWeights.at(static_cast<std::size_t>(font.weight())));
    return base;
}

}  // namespace

// Texts are measured and drawn many times in one font, and the library finds
// the typeface again for every font that is made anew.
QFont qtFont(const Font& font)
{
    struct Made {
        Font font;
        QFont base, made;
    };
    thread_local std::optional<Made> last;
    const QFont base = QGuiApplication::font();
    if (!last || last->font != font || !last->base.isCopyOf(base)) last.emplace(Made{font, base, made(font, base)});
    return last->made;
}

QImage& measuringSurface()
{
    static QImage surface = [] {
        QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.setDotsPerMeterX(2835);
        image.setDotsPerMeterY(2835);
        return image;
    }();
    return surface;
}

double Font::pointSize() const
{
    return size_ > 0 ? std::min(size_, largestSize) : usualSize;
}

double Font::capHeight() const
{
    return metricsOf(*this).capHeight();
}

double Font::ascender() const
{
    return metricsOf(*this).ascent();
}

double Font::descender() const
{
    return metricsOf(*this).descent();
}

double Font::leading() const
{
    return metricsOf(*this).leading();
}

}  // namespace Platform
