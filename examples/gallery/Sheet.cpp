#include "examples/gallery/Sheet.h"

#include <algorithm>
#include <cmath>

#include "Lorrel/presentation/TextUtilities.h"
#include "platform/ui/text/AttributedString.h"

using namespace Platform;
using Lorrel::TextUtilities;

namespace {

constexpr double margin = 16;
constexpr double gap = 14;
constexpr double captionSize = 10;
constexpr double captionHeight = 18;
const Color ink = Color::calibratedWhite(0.2);

AttributedString caption(const std::string& text)
{
    return AttributedString(text, TextUtilities::attributes(ink, TextAlignment::left, captionSize));
}

AttributedString heading(const std::string& text)
{
    return AttributedString(text, TextUtilities::attributes(TextAlignment::left, ink, true, 17));
}

}  // namespace

void Sheet::beginRow()
{
    y_ += rowHeight_ > 0 ? rowHeight_ + gap : 0;
    x_ = margin;
    rowHeight_ = 0;
}

void Sheet::addHeading(std::string text)
{
    beginRow();
    const Size size = heading(text).boundingSize();
    cells_.push_back({std::move(text), nullptr, Rect::of(margin, y_ + gap / 2, size.width, size.height)});
    y_ += size.height + 1.5 * gap;
}

void Sheet::add(std::string text, ImageRef picture)
{
    const Size size = picture->size();
    const double across = std::max(size.width, std::ceil(caption(text).boundingSize().width));
    if (x_ + across > width_ - margin) beginRow();
    cells_.push_back({std::move(text), std::move(picture), Rect::of(x_, y_, across, size.height + captionHeight)});
    x_ += across + gap;
    rowHeight_ = std::max(rowHeight_, size.height + captionHeight);
}

ImageRef Sheet::image() const
{
    auto sheet = std::make_shared<Image>(Size{width_, std::ceil(y_ + rowHeight_ + margin)});
    ImageFocus focus(sheet);
    GraphicsContext* context = focus.context();
    if (!context) return sheet;
    context->setFillColor(Color::calibratedWhite(0.97));
    context->fill({{}, sheet->size()}, CompositingOperation::sourceOver);
    for (const Cell& cell : cells_) {
        if (!cell.picture) {
            heading(cell.caption).draw(cell.place.origin);
            continue;
        }
        cell.picture->draw(cell.place.origin, {}, CompositingOperation::sourceOver, 1);
        caption(cell.caption).draw(Point{cell.place.minX(), cell.place.maxY() - captionHeight + 4});
    }
    return sheet;
}
