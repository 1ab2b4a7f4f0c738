#pragma once

#include <QTextLayout>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/ui/text/AttributedString.h"
#include "platform/ui/text/TextAttachment.h"

namespace Platform {

// The laid-out lines of an attributed string, no more of them than fit into
// the height. The first run's alignment is that of all lines.
class TextLines {
public:
    TextLines(const AttributedString& text, Size maximum);
    // Of a text in one font, which has no colour to be drawn in.
    TextLines(std::string_view text, const Font& font, Size maximum);

    Size size() const { return {width_, height_}; }
    void draw(QPainter& painter, QPointF origin) const;

private:
    struct Attached {
        int position;  // in the whole text
        std::shared_ptr<TextAttachment> attachment;
        Rect bounds;
    };
    struct Placed {
        std::shared_ptr<TextAttachment> attachment;
        QPointF corner;
        Size size;
    };

    void add(const AttributedString::Run& run);
    void breakLines(const QFont& font, TextAlignment alignment);
    // False when the line does not fit any more.
    bool place(QTextLine line);

    double maximumWidth_;
    double maximumHeight_;
    double width_ = 0;
    double height_ = 0;
    QString text_;
    QList<QTextLayout::FormatRange> formats_;
    std::vector<Attached> attached_;  // those that no line holds yet, last first
    std::optional<QTextLayout> layout_;
    std::vector<Placed> placed_;
};

}  // namespace Platform
