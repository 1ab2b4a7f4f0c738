#include "platform/session/internal/DesktopEntry.h"

#include <algorithm>

#include "platform/runtime/Trim.h"

namespace Platform {

namespace {

constexpr std::string_view groupHeader = "[Desktop Entry]";
constexpr std::string_view escapedInQuotes = "\"`$\\";
constexpr std::string_view plainPunctuation = "/-_.,:+@%=^";

struct Escape {
    char letter;
    char meaning;
};
constexpr Escape escapes[] = {{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};

std::string unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto* escape = text[at] == '\\' && at + 1 < text.size()
                                 ? std::ranges::find(escapes, text[at + 1], &Escape::letter)
                                 : std::end(escapes);
        if (escape == std::end(escapes)) {
            result += text[at];
        } else {
            result += escape->meaning;
            ++at;
        }
    }
    return result;
}

// A space is written as itself, except where a reader would trim it.
std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        const auto* escape = std::ranges::find(escapes, c, &Escape::meaning);
        const bool isPlain = escape == std::end(escapes) || (c == ' ' && !result.empty());
        if (!isPlain) result += '\\';
        result += isPlain ? c : escape->letter;
    }
    return result;
}

bool needsQuotes(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    const bool isWord = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || byte >= 0x80;
    return !isWord && plainPunctuation.find(c) == std::string_view::npos;
}

}  // namespace

DesktopEntry DesktopEntry::parse(std::string_view text)
{
    DesktopEntry entry;
    while (!text.empty()) {
        const auto end = text.find('\n');
        entry.lines_.emplace_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return entry;
}

std::optional<std::size_t> DesktopEntry::lineOf(std::string_view key) const
{
    bool isOurs = false;
    for (std::size_t number = 0; number < lines_.size(); ++number) {
        const std::string_view line = trimmed(lines_[number]);
        if (line.starts_with('[')) isOurs = line == groupHeader;
        const auto equals = line.find('=');
        if (isOurs && equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key) return number;
    }
    return std::nullopt;
}

std::optional<std::string> DesktopEntry::value(std::string_view key) const
{
    const auto line = lineOf(key);
    if (!line) return std::nullopt;
    const std::string_view text = lines_[*line];
    return unescaped(trimmed(text.substr(text.find('=') + 1)));
}

void DesktopEntry::set(std::string_view key, std::string_view value)
{
    std::string line = std::string(key) + "=" + escaped(value);
    if (const auto present = lineOf(key)) {
        lines_[*present] = std::move(line);
    } else {
        const auto end = endOfGroup();
        lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(end), std::move(line));
    }
}

void DesktopEntry::remove(std::string_view key)
{
    while (const auto line = lineOf(key)) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*line));
}

// Where a new key goes: behind the last line of the group that is not blank.
// A file without the group gets it at its end.
std::size_t DesktopEntry::endOfGroup()
{
    auto header = std::ranges::find_if(lines_, [](const auto& line) { return trimmed(line) == groupHeader; });
    if (header == lines_.end()) header = lines_.insert(header, std::string(groupHeader));
    auto end = std::find_if(header + 1, lines_.end(), [](const auto& line) { return trimmed(line).starts_with('['); });
    while (trimmed(*(end - 1)).empty()) --end;
    return static_cast<std::size_t>(end - lines_.begin());
}

std::string DesktopEntry::text() const
{
    std::string text;
    for (const auto& line : lines_) text += line + "\n";
    return text;
}

std::string execArgument(std::string_view argument)
{
    std::string result;
    for (const char c : argument) {
        if (escapedInQuotes.find(c) != std::string_view::npos) result += '\\';
        if (c == '%') result += '%';
        result += c;
    }
    const bool isQuoted = argument.empty() || std::ranges::any_of(argument, needsQuotes);
    return isQuoted ? "\"" + result + "\"" : result;
}

std::string execProgram(std::string_view exec)
{
    std::string program;
    bool isQuoted = false;
    exec = trimmed(exec);
    for (std::size_t at = 0; at < exec.size(); ++at) {
        const char c = exec[at];
        const bool hasNext = at + 1 < exec.size();
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == ' ' && !isQuoted) {
            break;
        } else if (hasNext && ((c == '\\' && isQuoted) || (c == '%' && exec[at + 1] == '%'))) {
            program += exec[++at];
        } else {
            program += c;
        }
    }
    return program;
}

}  // namespace Platform
