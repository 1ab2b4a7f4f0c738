#include "platform/ui/text/AttributedString.h"

#include "platform/ui/GraphicsContext.h"
#include "platform/ui/internal/QtDrawing.h"
#include "platform/ui/internal/TextLayout.h"

namespace Platform {

AttributedString::AttributedString(std::string text, TextAttributes attributes)
{
    if (!text.empty()) runs_.push_back({std::move(text), std::move(attributes)});
}

AttributedString::AttributedString(std::shared_ptr<TextAttachment> attachment)
    : AttributedString("\xef\xbf\xbc", {{attachmentAttribute, std::move(attachment)}})
{
}

AttributedString& AttributedString::append(const AttributedString& other)
{
    runs_.insert(runs_.end(), other.runs_.begin(), other.runs_.end());
    return *this;
}

std::string AttributedString::string() const
{
    std::string text;
    for (const Run& run : runs_) text += run.text;
    return text;
}

Size AttributedString::boundingSize(Size maximum) const
{
    return TextLines(*this, maximum).size();
}

Size boundingSize(std::string_view text, const Font& font, Size maximum)
{
    return TextLines(text, font, maximum).size();
}

void AttributedString::draw(const Rect& rect) const
{
    GraphicsContext* context = GraphicsContext::current();
    if (!context || !rect.isFinite()) return;
    TextLines(*this, rect.size).draw(ContextAccess::painter(*context), {rect.origin.x, rect.origin.y});
}

void AttributedString::draw(Point point) const
{
    draw({point, {}});
}

}  // namespace Platform
