#pragma once

#include <map>
#include <memory>
#include <string>
#include <variant>

#include "platform/ui/text/Font.h"

namespace Platform {

enum class TextAlignment { left = 0, center = 1, right = 2, justified = 3, natural = 4 };

// How the lines of a paragraph stand. Held by shared pointers; compares by content.
struct ParagraphStyle {
    TextAlignment alignment = TextAlignment::natural;
    friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

class TextAttachment;

using AttributeValue = std::variant<Font, Color, std::shared_ptr<ParagraphStyle>, std::shared_ptr<TextAttachment>>;
// By attribute name.
using TextAttributes = std::map<std::string, AttributeValue>;

inline constexpr const char* fontAttribute = "NSFont";
inline constexpr const char* foregroundColorAttribute = "NSColor";
inline constexpr const char* paragraphStyleAttribute = "NSParagraphStyle";
inline constexpr const char* attachmentAttribute = "NSAttachment";

}  // namespace Platform
