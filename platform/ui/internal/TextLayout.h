#pragma once

#include <QTextLayout>
#include <vector>

#include "platform/ui/text/AttributedString.h"
#include "platform/ui/text/TextAttachment.h"

namespace Platform {

// The lines of an attributed string. Paragraphs end at line feeds, each is
// laid out by itself, and no more of them than fit into the height.
class TextLines {
public:
    TextLines(const AttributedString& text, Size maximum);

    Size size() const { return {width_, height_}; }
    void draw(QPainter& painter, QPointF origin) const;

private:
    struct Placed {
        std::shared_ptr<TextAttachment> attachment;
        QPointF place;  // on the base line
    };
    // A stretch of one paragraph, in characters from the paragraph's start.
    struct Piece {
        qsizetype start;
        qsizetype length;
        const TextAttributes* attributes;
    };

    void addParagraph(const QString& text, const std::vector<Piece>& pieces);
    bool placeLine(QTextLine line, const std::vector<Piece>& pieces);
    void placeAttachments(const QTextLine& line, const std::vector<Piece>& pieces, double baseLine);

    double maximumWidth_;
    double maximumHeight_;
    double width_ = 0;
    double height_ = 0;
    bool isFull_ = false;
    std::vector<std::unique_ptr<QTextLayout>> paragraphs_;
    std::vector<Placed> attachments_;
};

}  // namespace Platform
