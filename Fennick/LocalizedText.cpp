#include "Fennick/LocalizedText.h"

#include <optional>

namespace Fennick {

namespace {

enum class Placeholder { none, number, text };

// The placeholder at the front of a text that begins after its percent sign,
// taken off it; absent for one that no key promises.
std::optional<Placeholder> takePlaceholder(std::string_view& text)
{
    if (text.starts_with("1$")) text.remove_prefix(2);
    if (text.starts_with('@')) {
        text.remove_prefix(1);
        return Placeholder::text;
    }
    for (int longs = 0; longs < 2 && text.starts_with('l'); ++longs) text.remove_prefix(1);
    if (!text.starts_with('d') && !text.starts_with('i')) return std::nullopt;
    text.remove_prefix(1);
    return Placeholder::number;
}

// The format with its one placeholder replaced; absent when it holds others than promised.
std::optional<std::string> filled(std::string_view format, Placeholder promised, std::string_view argument)
{
    std::string result;
    auto missing = promised;
    for (;;) {
        const std::size_t percent = format.find('%');
        result += format.substr(0, percent);
        if (percent == std::string_view::npos) break;
        format.remove_prefix(percent + 1);
        if (format.starts_with('%')) {
            format.remove_prefix(1);
            result += '%';
            continue;
        }
        const auto found = takePlaceholder(format);
        if (!found || *found != missing) return std::nullopt;
        missing = Placeholder::none;
        result += argument;
    }
    if (missing != Placeholder::none) return std::nullopt;
    return result;
}

std::string textFor(const Platform::Bundle& bundle, std::string_view key, Placeholder promised,
                    std::string_view argument)
{
    return filled(bundle.localizedString(key), promised, argument).value_or(std::string(key));
}

}  // namespace

std::string localizedText(const Platform::Bundle& bundle, std::string_view key)
{
    return textFor(bundle, key, Placeholder::none, {});
}

std::string localizedText(const Platform::Bundle& bundle, std::string_view key, std::int64_t number)
{
    return textFor(bundle, key, Placeholder::number, std::to_string(number));
}

std::string localizedText(const Platform::Bundle& bundle, std::string_view key, std::string_view text)
{
    return textFor(bundle, key, Placeholder::text, text);
}

}  // namespace Fennick
