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
constexpr std::array<Qt::Alignment, 5> alignments{Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight, Qt::AlignJustify,
                                                  Qt::AlignLeading};
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

TextAlignment alignmentOf(const AttributedString& text)
{
    if (text.isEmpty()) return TextAlignment::natural;
    const auto* style = attribute<std::shared_ptr<ParagraphStyle>>(text.runs()[0].attributes, paragraphStyleAttribute);
    return style && *style ? (*style)->alignment : TextAlignment::natural;
}

// Inside a long word the library looks for its end again at every line, which
// takes forever; such a one is broken anywhere.
bool hasEndlessWord(const QString& text)
{
    constexpr qsizetype longestWord = 4096;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace()) start = i + 1;
        if (i - start > longestWord) return true;
    }
    return false;
}

// An attachment is laid out as a hard space that is spread to the image's width.
QTextCharFormat formatOf(const TextAttributes& attributes)
{
    QTextCharFormat format;
    const TextAttachment* attachment = attachmentOf(attributes);
    QFont font = qtFont(fontOf(attributes));
    if (attachment) {
        const double space = QFontMetricsF(font, &measuringSurface()).horizontalAdvance(QChar::Nbsp);
        // In parts of the space: an absolute one is scaled by a whole number of screen pixels, here 0.
        font.setLetterSpacing(QFont::PercentageSpacing, 100 * attachment->drawnBounds().size.width / space);
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
    if (text.isEmpty()) return;
    ensureGuiApplication();
    for (const AttributedString::Run& run : text.runs()) add(run);
    std::ranges::reverse(attached_);
    breakLines(formats_[0].format.font(), alignmentOf(text));
}

TextLines::TextLines(std::string_view text, const Font& font, Size maximum)
    : maximumWidth_(limit(maximum.width, widestLine)), maximumHeight_(limit(maximum.height, HUGE_VAL))
{
    if (text.empty()) return;
    ensureGuiApplication();
    text_ = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    breakLines(qtFont(font), TextAlignment::natural);
}

void TextLines::add(const AttributedString::Run& run)
{
    const auto* attachment = attribute<std::shared_ptr<TextAttachment>>(run.attributes, attachmentAttribute);
    const bool isAttached = attachment && *attachment;
    const auto start = int(text_.size());
    text_ += isAttached ? QString(QChar(QChar::Nbsp)) : QString::fromStdString(run.text);
    formats_.append({start, int(text_.size()) - start, formatOf(run.attributes)});
    if (isAttached) attached_.push_back({start, *attachment, (*attachment)->drawnBounds()});
}

void TextLines::breakLines(const QFont& font, TextAlignment alignment)
{
    text_.replace(u'\n', QChar::LineSeparator);
    // Without a width to stand in, lines begin at the left, whatever their direction.
    const bool isBounded = maximumWidth_ < widestLine;
    QTextOption option(isBounded ? alignments.at(static_cast<std::size_t>(alignment))
                                 : Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(hasEndlessWord(text_) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.emplace(text_, font, &measuringSurface());
    layout_->setTextOption(option);
    if (!formats_.isEmpty()) layout_->setFormats(formats_);
    layout_->beginLayout();
    for (QTextLine line = layout_->createLine(); line.isValid() && place(line);) line = layout_->createLine();
    layout_->endLayout();
}

// Attachments may reach higher or deeper than the letters.
bool TextLines::place(QTextLine line)
{
    line.setLeadingIncluded(true);
    line.setLineWidth(maximumWidth_);
    double above = line.ascent();
    double below = line.height() - line.ascent();
    std::vector<Attached> here;
    while (!attached_.empty() && attached_.back().position < line.textStart() + line.textLength()) {
        here.push_back(std::move(attached_.back()));
        attached_.pop_back();
        above = std::max(above, here.back().bounds.maxY());
        below = std::max(below, -here.back().bounds.minY());
    }
    if (height_ > 0 && height_ + above + below > maximumHeight_) {
        // Drawn far above everything: a line cannot be taken back.
        line.setPosition({0, -widestLine});
        return false;
    }
    line.setPosition({0, height_ + above - line.ascent()});
    for (Attached& each : here) {
        const QPointF corner(line.cursorToX(each.position) + each.bounds.minX(), height_ + above - each.bounds.maxY());
        placed_.push_back({std::move(each.attachment), corner, each.bounds.size});
    }
    width_ = std::max(width_, line.naturalTextWidth());
    height_ += above + below;
    return true;
}

void TextLines::draw(QPainter& painter, QPointF origin) const
{
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (layout_) layout_->draw(&painter, origin);
    for (const Placed& each : placed_) {
        const QPointF corner = origin + each.corner;
        if (!each.attachment->image()) continue;
        each.attachment->image()->draw({{corner.x(), corner.y()}, each.size}, {}, CompositingOperation::sourceOver, 1);
    }
}

}  // namespace Platform
