#include "platform/ui/internal/TextLayout.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/ui/Appearance.h"
#include "platform/ui/internal/GuiApplication.h"
#include "platform/ui/internal/QtDrawing.h"
#include "platform/ui/internal/QtText.h"

namespace Platform {
namespace {

// No line is wider; the library counts in 1/64 points in 32 bits.
constexpr double widestLine = 1 << 24;
constexpr std::array alignments{Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight, Qt::AlignJustify, Qt::AlignLeading};
const Font usualFont = Font::system(0);

double limit(double maximum, double none)
{
    return maximum > 0 && maximum < none ? maximum : none;
}

template <typename Value>
const Value* attribute(const TextAttributes& attributes, const char* name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? nullptr : std::get_if<Value>(&found->second);
}

const Font& fontOf(const TextAttributes& attributes)
{
    const Font* font = attribute<Font>(attributes, fontAttribute);
    return font ? *font : usualFont;
}

const TextAttachment* attachmentOf(const TextAttributes& attributes)
{
    const auto* attachment = attribute<std::shared_ptr<TextAttachment>>(attributes, attachmentAttribute);
    return attachment ? attachment->get() : nullptr;
}

Qt::Alignment alignmentOf(const TextAttributes& attributes)
{
    const auto* style = attribute<std::shared_ptr<ParagraphStyle>>(attributes, paragraphStyleAttribute);
    const auto alignment = style && *style ? (*style)->alignment : TextAlignment::natural;
    return alignments.at(static_cast<std::size_t>(alignment));
}

// An attachment is laid out as a hard space that is spread to the image's width.
QTextCharFormat formatOf(const TextAttributes& attributes)
{
    QTextCharFormat format;
    const TextAttachment* attachment = attachmentOf(attributes);
    QFont font = qtFont(fontOf(attributes));
    if (attachment) {
        const double space = QFontMetricsF(font, &measuringSurface()).horizontalAdvance(QChar::Nbsp);
        font.setLetterSpacing(QFont::AbsoluteSpacing, attachment->drawnBounds().size.width - space);
    }
    format.setFont(font);
    const Color* color = attribute<Color>(attributes, foregroundColorAttribute);
    format.setForeground(qtColor(color ? *color : Color::labelColor()));
    return format;
}

}  // namespace

TextLines::TextLines(const AttributedString& text, Size maximum)
    : maximumWidth_(limit(maximum.width, widestLine)), maximumHeight_(limit(maximum.height, HUGE_VAL))
{
    ensureGuiApplication();
    QString paragraph;
    std::vector<Piece> pieces;
    for (const AttributedString::Run& run : text.runs()) {
        QString rest = QString::fromStdString(run.text);
        if (attachmentOf(run.attributes)) rest = QString(QChar(QChar::Nbsp));
        qsizetype from = 0;
        while (!isFull_) {
            const qsizetype end = rest.indexOf(u'\n', from);
            const qsizetype length = (end < 0 ? rest.size() : end) - from;
            pieces.push_back({paragraph.size(), length, &run.attributes});
            paragraph.append(QStringView(rest).mid(from, length));
            if (end < 0) break;
            addParagraph(paragraph, pieces);
            paragraph.clear();
            pieces.clear();
            from = end + 1;
        }
    }
    if (!isFull_ && !pieces.empty()) addParagraph(paragraph, pieces);
}

void TextLines::addParagraph(const QString& text, const std::vector<Piece>& pieces)
{
    const TextAttributes& first = *pieces.front().attributes;
    auto layout = std::make_unique<QTextLayout>(text, qtFont(fontOf(first)), &measuringSurface());
    // Without a width to stand in, lines begin at the left, whatever their direction.
    const bool isBounded = maximumWidth_ < widestLine;
    QTextOption option(isBounded ? alignmentOf(first) : Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    QList<QTextLayout::FormatRange> formats;
    for (const Piece& piece : pieces) {
        formats.append({int(piece.start), int(piece.length), formatOf(*piece.attributes)});
    }
    layout->setFormats(formats);
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid() && placeLine(line, pieces);) line = layout->createLine();
    layout->endLayout();
    paragraphs_.push_back(std::move(layout));
}

// Attachments may reach higher or deeper than the letters. False when the line does not fit any more.
bool TextLines::placeLine(QTextLine line, const std::vector<Piece>& pieces)
{
    line.setLeadingIncluded(true);
    line.setLineWidth(maximumWidth_);
    double above = line.ascent();
    double below = line.height() - line.ascent();
    for (const Piece& piece : pieces) {
        const TextAttachment* attachment = attachmentOf(*piece.attributes);
        const bool isHere = piece.start >= line.textStart() && piece.start < line.textStart() + line.textLength();
        if (!attachment || !isHere) continue;
        above = std::max(above, attachment->drawnBounds().maxY());
        below = std::max(below, -attachment->drawnBounds().minY());
    }
    if (height_ > 0 && height_ + above + below > maximumHeight_) {
        isFull_ = true;
        line.setNumColumns(0);
        return false;
    }
    line.setPosition({0, height_ + above - line.ascent()});
    placeAttachments(line, pieces, height_ + above);
    width_ = std::max(width_, line.naturalTextWidth());
    height_ += above + below;
    return true;
}

void TextLines::placeAttachments(const QTextLine& line, const std::vector<Piece>& pieces, double baseLine)
{
    for (const Piece& piece : pieces) {
        const auto* found = attribute<std::shared_ptr<TextAttachment>>(*piece.attributes, attachmentAttribute);
        const bool isHere = piece.start >= line.textStart() && piece.start < line.textStart() + line.textLength();
        if (found && *found && isHere) attachments_.push_back({*found, {line.cursorToX(int(piece.start)), baseLine}});
    }
}

void TextLines::draw(QPainter& painter, QPointF origin) const
{
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (const auto& layout : paragraphs_) layout->draw(&painter, origin);
    for (const Placed& each : attachments_) {
        const Rect bounds = each.attachment->drawnBounds();
        if (!each.attachment->image()) continue;
        const Point corner{origin.x() + each.place.x() + bounds.minX(), origin.y() + each.place.y() - bounds.maxY()};
        each.attachment->image()->draw({corner, bounds.size}, {}, CompositingOperation::sourceOver, 1);
    }
}

}  // namespace Platform
