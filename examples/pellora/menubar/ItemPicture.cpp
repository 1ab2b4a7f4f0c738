#include "examples/pellora/menubar/ItemPicture.h"

#include <algorithm>
#include <cmath>

#include "Lorrel/presentation/TextUtilities.h"
#include "platform/menubar/StatusBar.h"
#include "platform/ui/BezierPath.h"
#include "platform/ui/GraphicsContext.h"
#include "platform/ui/text/AttributedString.h"

namespace Pellora {

namespace {

using namespace Platform;

constexpr int pixelsPerPoint = 2;
constexpr double margin = 14;
constexpr double lineHeight = 23;
constexpr double separatorHeight = 9;
constexpr double tickWidth = 26;
constexpr double shortcutWidth = 56;
constexpr double textSize = 12.5;
constexpr double corner = 7;
const std::string tick = "✓";

struct Palette {
    Color desk, bar, menu, edge, text, dim;
};

Palette paletteOf(const std::string& look)
{
    const auto white = [](double value, double alpha = 1) { return Color::calibratedWhite(value, alpha); };
    if (look == Appearance::darkAqua) {
        return {
            Color::calibratedRGB(0.13, 0.16, 0.22), white(0.10), white(0.17), white(1, 0.14), white(0.96), white(0.74)};
    }
    return {
        Color::calibratedRGB(0.72, 0.79, 0.88), white(0.95), white(0.985), white(0, 0.16), white(0.08), white(0.33)};
}

Bitmap bitmapFor(Size size)
{
    const auto bitmap =
        Bitmap::create(static_cast<int>(size.width * pixelsPerPoint), static_cast<int>(size.height * pixelsPerPoint));
    return bitmap.value_or(Bitmap());
}

AttributedString textOf(const std::string& text, const Color& color)
{
    return AttributedString(text, Lorrel::TextUtilities::attributes(color, TextAlignment::left, textSize));
}

double heightOf(const MenuItem& item)
{
    return item.isSeparator() ? separatorHeight : lineHeight;
}

Size sizeOf(const Menu& menu)
{
    Size size{0, 2 * 5};
    for (const auto& item : menu.items()) {
        if (item->isHidden()) continue;
        size.height += heightOf(*item);
        size.width = std::max(size.width, textOf(item->title(), Color::black()).boundingSize().width);
    }
    return {std::ceil(size.width) + tickWidth + shortcutWidth, size.height};
}

void drawCentred(const AttributedString& text, double x, const Rect& line)
{
    text.draw(Point{x, line.minY() + (line.size.height - text.boundingSize().height) / 2});
}

void drawLine(GraphicsContext& context, const MenuItem& item, const Rect& line, const Palette& palette)
{
    if (item.isSeparator()) {
        context.setFillColor(palette.edge);
        context.fill(Rect::of(line.minX() + 10, line.minY() + separatorHeight / 2, line.size.width - 20, 1),
                     CompositingOperation::sourceOver);
        return;
    }
    const Color& color = item.isEnabled() ? palette.text : palette.dim;
    if (item.state() == MenuItemState::on) drawCentred(textOf(tick, color), line.minX() + 9, line);
    drawCentred(textOf(item.title(), color), line.minX() + tickWidth, line);
    if (item.keyEquivalent().empty()) return;
    std::string key = "⌘" + item.keyEquivalent();
    std::ranges::transform(key, key.begin(), [](char each) { return each >= 'a' && each <= 'z' ? each - 32 : each; });
    const auto shortcut = textOf(key, palette.dim);
    drawCentred(shortcut, line.maxX() - 14 - shortcut.boundingSize().width, line);
}

void drawMenu(GraphicsContext& context, const Menu& menu, const Rect& place, const Palette& palette)
{
    const auto outline = BezierPath::roundedRect(place, corner, corner);
    context.setFillColor(palette.menu);
    outline.fill();
    context.setStrokeColor(palette.edge);
    outline.stroke();
    double y = place.minY() + 5;
    for (const auto& item : menu.items()) {
        if (item->isHidden()) continue;
        drawLine(context, *item, Rect::of(place.minX(), y, place.size.width, heightOf(*item)), palette);
        y += heightOf(*item);
    }
}

// The button as it is drawn for the bar, in another look for as long as it takes.
void drawButton(GraphicsContext& context, StatusBarButton& button, Point origin, const std::string& look)
{
    button.setAppearance(Appearance(look));
    button.setFrame({{}, button.intrinsicContentSize()});
    context.saveState();
    context.translate(origin.x, origin.y);
    button.render(context);
    context.restoreState();
    button.setAppearance(std::nullopt);
}

}  // namespace

ImageRef itemPicture(StatusItem& item, const std::string& look)
{
    constexpr double bar = StatusBar::thickness + 4;
    const Palette palette = paletteOf(look);
    const Size menu = sizeOf(*item.menu());
    const Size size{menu.width + 2 * margin, bar + menu.height + margin + 4};
    const double left = margin;

    GraphicsContext context(bitmapFor(size), size);
    const GraphicsContext::Current current(&context);
    context.setFillColor(palette.desk);
    context.fill({{}, size}, CompositingOperation::copy);
    context.setFillColor(palette.bar);
    context.fill(Rect::of(0, 0, size.width, bar), CompositingOperation::sourceOver);
    drawMenu(context, *item.menu(), Rect::of(left, bar + 4, menu.width, menu.height), palette);
    drawButton(context, *item.button(), {left, (bar - StatusBar::thickness) / 2}, look);
    return std::make_shared<Image>(context.finish(), size);
}

ImageRef sideBySide(const std::vector<ImageRef>& pictures)
{
    Size size;
    for (const auto& picture : pictures) {
        size.width += picture->size().width;
        size.height = std::max(size.height, picture->size().height);
    }
    GraphicsContext context(bitmapFor(size), size);
    const GraphicsContext::Current current(&context);
    double x = 0;
    for (const auto& picture : pictures) {
        picture->draw(Point{x, 0}, {}, CompositingOperation::sourceOver, 1);
        x += picture->size().width;
    }
    return std::make_shared<Image>(context.finish(), size);
}

}  // namespace Pellora
