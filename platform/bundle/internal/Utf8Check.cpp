#include "platform/bundle/internal/PropertyListGuard.h"

namespace Platform {

namespace {

// The length of the well-formed sequence at the front (Unicode, table 3-7); 0 when there is none.
std::size_t sequenceLength(std::string_view text)
{
    const auto byteAt = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const auto continues = [&](std::size_t i) { return (byteAt(i) & 0xC0U) == 0x80U; };
    const unsigned lead = byteAt(0);
    const unsigned second = byteAt(1);
    if (lead < 0x80) return lead == 0 ? 0 : 1;
    if (lead < 0xC2 || lead > 0xF4 || !continues(1)) return 0;
    if (lead < 0xE0) return 2;
    if (!continues(2)) return 0;
    if (lead < 0xF0) return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ? 0 : 3;
    if (!continues(3)) return 0;
    return (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F) ? 0 : 4;
}

}  // namespace

bool isPlainUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace Platform
