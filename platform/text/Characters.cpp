#include "platform/text/Characters.h"

#include <algorithm>
#include <memory>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/ubrk.h>

namespace Platform {

namespace {

struct BreakIteratorCloser {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};
struct TextCloser {
    void operator()(UText* text) const { utext_close(text); }
};

bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char asciiUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Costs as much to make as a few hundred texts to read.
UBreakIterator* clusters()
{
    thread_local const std::unique_ptr<UBreakIterator, BreakIteratorCloser> iterator = [] {
        UErrorCode error = U_ZERO_ERROR;
        return std::unique_ptr<UBreakIterator, BreakIteratorCloser>(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error));
    }();
    return iterator.get();
}

}  // namespace

std::string uppercased(std::string_view text)
{
    std::string upper;
    if (isAscii(text)) {
        std::ranges::transform(text, std::back_inserter(upper), asciiUpper);
        return upper;
    }
    UErrorCode error = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&upper);
    icu::CaseMap::utf8ToUpper("", 0, icu::StringPiece(text.data(), static_cast<int32_t>(text.size())), sink, nullptr,
                              error);
    return U_SUCCESS(error) ? upper : std::string(text);
}

std::size_t characterCount(std::string_view text)
{
    if (isAscii(text) && text.find('\r') == std::string_view::npos) return text.size();
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UText, TextCloser> content(
        utext_openUTF8(nullptr, text.data(), static_cast<int64_t>(text.size()), &error));
    UBreakIterator* iterator = clusters();
    if (!iterator || U_FAILURE(error)) return text.size();
    ubrk_setUText(iterator, content.get(), &error);
    std::size_t count = 0;
    while (ubrk_next(iterator) != UBRK_DONE) ++count;
    return count;
}

}  // namespace Platform
