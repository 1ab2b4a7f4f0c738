#include "Lorrel/presentation/TextUtilities.h"

#include <cstdint>

#include "platform/ui/text/AttributedString.h"

namespace Lorrel {

using namespace Platform;

namespace {

constexpr std::uint32_t flagOffset = 127397;
constexpr std::uint32_t lastScalar = 0x10ffff;

Font systemFont(bool bold, double size)
{
    return bold ? Font::boldSystem(size) : Font::system(size);
}

bool isScalar(std::uint32_t value)
{
    return value <= lastScalar && (value < 0xd800 || value > 0xdfff);
}

// How many bytes a sequence has that begins with this one; 0 for one that begins none.
std::size_t sequenceLength(unsigned char lead)
{
    if (lead < 0x80) return 1;
    if (lead >= 0xc2 && lead <= 0xdf) return 2;
    if ((lead & 0xf0) == 0xe0) return 3;
    return lead >= 0xf0 && lead <= 0xf4 ? 4 : 0;
}

// Takes the first character off the text; absent where the bytes are none, and one byte is taken.
std::optional<std::uint32_t> takeScalar(std::string_view& text)
{
    static constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = sequenceLength(lead);
    std::uint32_t value = length < 2 ? lead : lead & (0x7fu >> length);
    bool isWhole = length > 0 && length <= text.size();
    for (std::size_t i = 1; isWhole && i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        isWhole = (next & 0xc0) == 0x80;
        value = value << 6 | (next & 0x3fu);
    }
    isWhole = isWhole && isScalar(value) && value >= smallest[length];
    text.remove_prefix(isWhole ? length : 1);
    return isWhole ? std::optional(value) : std::nullopt;
}

// Every moved character lies above 0xffff, so it has four bytes.
void append(std::string& text, std::uint32_t scalar)
{
    text += static_cast<char>(0xf0 | scalar >> 18);
    text += static_cast<char>(0x80 | (scalar >> 12 & 0x3f));
    text += static_cast<char>(0x80 | (scalar >> 6 & 0x3f));
    text += static_cast<char>(0x80 | (scalar & 0x3f));
}

}  // namespace

TextAttributes TextUtilities::attributes(const Color& color, Alignment alignment, double size)
{
    return attributes(Font::system(size), color, alignment);
}

TextAttributes TextUtilities::attributes(const Color& color, double size)
{
    return attributes(color, Alignment::center, size);
}

TextAttributes TextUtilities::attributes(Alignment alignment, const Color& color, bool bold, double size)
{
    return attributes(systemFont(bold, size), color, alignment);
}

TextAttributes TextUtilities::attributes(Alignment alignment, double size)
{
    return attributes(false, alignment, size);
}

TextAttributes TextUtilities::attributes(const Font& font, const Color& color, Alignment alignment)
{
    return {{fontAttribute, font},
            {foregroundColorAttribute, color},
            {paragraphStyleAttribute, std::make_shared<ParagraphStyle>(ParagraphStyle{alignment})}};
}

TextAttributes TextUtilities::attributes(bool bold, Alignment alignment, double size)
{
    return attributes(systemFont(bold, size), Color::labelColor(), alignment);
}

TextAttributes TextUtilities::attributes(double size)
{
    return attributes(false, Alignment::center, size);
}

Size TextUtilities::size(std::optional<std::string_view> text, const Font& font, double maximumWidth,
                         double maximumHeight)
{
    if (!text) return {};
    return boundingSize(*text, font, {maximumWidth, maximumHeight});
}

double TextUtilities::height(std::optional<std::string_view> text, const Font& font)
{
    return size(text, font, 0, 0).height;
}

std::string TextUtilities::flag(std::string_view code)
{
    std::string flag;
    flag.reserve(4 * code.size());
    while (!code.empty()) {
        const auto scalar = takeScalar(code);
        if (scalar && isScalar(*scalar + flagOffset)) append(flag, *scalar + flagOffset);
    }
    return flag;
}

}  // namespace Lorrel
