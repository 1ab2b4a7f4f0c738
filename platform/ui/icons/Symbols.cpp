#include "platform/ui/icons/Symbols.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/ui/icons/IconTheme.h"
#include "platform/ui/icons/SymbolPath.h"
#include "platform/ui/icons/SymbolTable.h"

namespace Platform {
namespace {

constexpr double gridSide = 24;
constexpr double defaultPointSize = 13;
// A symbol is that much taller than the letters it stands beside.
constexpr double sidePerPoint = 1.25;
// How much of a hierarchical colour the paler parts take.
constexpr double secondaryAlpha = 0.5;
// Width of strokes on the grid, thinnest weight first.
constexpr std::array strokeWidths{0.6, 0.9, 1.3, 1.8, 2.1, 2.5, 2.9, 3.4, 3.9};

// Draws a symbol on its grid of 24 points in a configuration.
using GridDrawing = std::function<void(GraphicsContext&, const SymbolConfiguration&)>;

// A tint covers the black drawing: a translucent one lets some of the black through.
Color tintOverBlack(const Color& tint)
{
    const double alpha = tint.alpha();
    return Color::calibratedRGB(tint.red() * alpha, tint.green() * alpha, tint.blue() * alpha);
}

std::optional<Color> colorOf(const SymbolConfiguration& look)
{
    return look.tint ? tintOverBlack(*look.tint) : look.hierarchicalColor;
}

void drawPart(GraphicsContext& context, const SymbolPart& part, const Color& color, double strokeWidth)
{
    context.setFillColor(color);
    context.setStrokeColor(color);
    if (part.isFilled) return context.fill(part.path);
    BezierPath path = part.path;
    path.setLineWidth(strokeWidth);
    path.setLineCap(LineCap::round);
    context.stroke(path);
}

void drawFigures(GraphicsContext& context, const std::vector<SymbolPart>& parts, const SymbolConfiguration& look)
{
    const double width = strokeWidths.at(static_cast<std::size_t>(look.weight.value_or(FontWeight::regular)));
    const Color main = colorOf(look).value_or(Color::black());
    const bool isPaler = look.hierarchicalColor && !look.tint;
    const Color pale = isPaler ? main.withAlpha(main.alpha() * secondaryAlpha) : main;
    for (const SymbolPart& part : parts) drawPart(context, part, part.isSecondary ? pale : main, width);
}

ImageRef symbolImage(const std::shared_ptr<const GridDrawing>& grid, const SymbolConfiguration& look)
{
    const double side = std::ceil(look.pointSize.value_or(defaultPointSize) * sidePerPoint);
    auto image = std::make_shared<Image>(Size{side, side}, [grid, look, side](GraphicsContext& context) {
        context.saveState();
        context.scale(side / gridSide, side / gridSide);
        (*grid)(context, look);
        context.restoreState();
    });
    image->setTemplate(!look.tint && !look.hierarchicalColor);
    image->setSymbol(
        [grid, look](const SymbolConfiguration& other) { return symbolImage(grid, look.applying(other)); });
    return image;
}

void drawThemeIcon(GraphicsContext& context, const std::string& themeName, const SymbolConfiguration& look)
{
    const Rect whole = Rect::of(0, 0, gridSide, gridSide);
    const int pixels = std::clamp(static_cast<int>(std::lround(gridSide * context.pixelsPerPoint().width)), 1, 1024);
    const auto icon = IconTheme::shared().icon(themeName, pixels);
    if (!icon) return drawFigures(context, parseSymbol("s R3.5 3.5 17 17 2.5"), look);
    auto colored = icon->copy();
    colored->setSize(whole.size);
    if (const auto color = colorOf(look)) {
        ImageFocus focus(colored);
        if (auto* own = focus.context()) {
            own->setFillColor(*color);
            own->fill(whole, CompositingOperation::sourceAtop);
        }
    }
    colored->draw(whole, {}, CompositingOperation::sourceOver, 1);
}

std::shared_ptr<const GridDrawing> themeDrawing(std::string_view themeName)
{
    return std::make_shared<GridDrawing>(
        [name = std::string(themeName)](auto& context, const auto& look) { drawThemeIcon(context, name, look); });
}

std::shared_ptr<const GridDrawing> figureDrawing(std::string_view figures)
{
    return std::make_shared<GridDrawing>(
        [parts = parseSymbol(figures)](auto& context, const auto& look) { drawFigures(context, parts, look); });
}

template <typename Row>
const Row* find(std::span<const Row> table, std::string_view name)
{
    const auto row = std::ranges::lower_bound(table, name, {}, &Row::name);
    return row != table.end() && row->name == name ? &*row : nullptr;
}

}  // namespace

ImageRef systemSymbol(std::string_view name)
{
    if (const auto* row = find(symbolFigures(), name)) return symbolImage(figureDrawing(row->figures), {});
    if (const auto* row = find(themeSymbols(), name)) return symbolImage(themeDrawing(row->themeName), {});
    return nullptr;
}

std::vector<std::string> symbolNames()
{
    std::vector<std::string> names;
    for (const auto& row : symbolFigures()) names.emplace_back(row.name);
    for (const auto& row : themeSymbols()) names.emplace_back(row.name);
    std::ranges::sort(names);
    return names;
}

}  // namespace Platform
