#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/text/TextAttributes.h"

namespace Platform {

// A text in runs of one look each. A value. Measuring and drawing need the
// main thread. Lines break at the width, between words where they can; the
// first run's alignment is that of all lines.
class AttributedString {
public:
    struct Run {
        std::string text;
        TextAttributes attributes;
    };

    AttributedString() = default;
    explicit AttributedString(std::string text, TextAttributes attributes = {});
    // One attachment alone.
    explicit AttributedString(std::shared_ptr<TextAttachment> attachment);

    AttributedString& append(const AttributedString& other);
    // The texts of all runs; an attachment is the object replacement character.
    std::string string() const;
    const std::vector<Run>& runs() const { return runs_; }
    bool isEmpty() const { return runs_.empty(); }

    // The size of the laid-out lines, with the font's gap between them. A
    // maximum of 0, or one that is not a number, is none; lines that do not fit
    // into a maximum height are left out, but never the first.
    Size boundingSize(Size maximum = {}) const;
    // Into the thread's current context, from the rectangle's top, inside its width.
    void draw(const Rect& rect) const;
    // In one line, its top left corner at the point.
    void draw(Point point) const;

private:
    std::vector<Run> runs_;
};

// The bounding size of an attributed string of the text with the font as its only attribute.
Size boundingSize(std::string_view text, const Font& font, Size maximum);

}  // namespace Platform
