#include "platform/ui/text/Font.h"

#include <QFontMetricsF>
#include <array>

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

}  // namespace

QFont qtFont(const Font& font)
{
    QFont result = QGuiApplication::font();
    if (!font.family().empty()) result.setFamilies({QString::fromStdString(font.family())});
    result.setPointSizeF(font.pointSize());
    result.setWeight(qtWeights.at(static_cast<std::size_t>(font.weight())));
    return result;
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
