#include "platform/ui/icons/IconThemeIndex.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "platform/runtime/Trim.h"

namespace Platform {
namespace {

using Section = std::map<std::string, std::string, std::less<>>;
using Sections = std::map<std::string, Section, std::less<>>;

// The piece before the separator, which is taken off the text.
std::string_view takePiece(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return trimmed(piece);
}

Sections readSections(std::string_view text)
{
    Sections sections;
    Section* section = nullptr;
    while (!text.empty()) {
        std::string_view line = takePiece(text, '\n');
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            line.remove_prefix(1);
            section = &sections[std::string(takePiece(line, ']'))];
            continue;
        }
        const std::string key(takePiece(line, '='));
        if (section) (*section)[key] = std::string(trimmed(line));
    }
    return sections;
}

std::string_view text(const Section& section, std::string_view key)
{
    const auto found = section.find(key);
    return found == section.end() ? std::string_view() : std::string_view(found->second);
}

int number(const Section& section, std::string_view key, int fallback)
{
    const std::string_view value = text(section, key);
    int result = fallback;
    std::from_chars(value.data(), value.data() + value.size(), result);
    return result;
}

std::vector<std::string> list(std::string_view value)
{
    std::vector<std::string> items;
    while (!value.empty()) {
        const std::string_view item = takePiece(value, ',');
        if (!item.empty()) items.emplace_back(item);
    }
    return items;
}

IconFolder folderOf(const std::string& path, const Section& section)
{
    IconFolder folder{path, number(section, "Size", 0), std::max(1, number(section, "Scale", 1))};
    const std::string_view kind = text(section, "Type");
    folder.kind = kind == "Fixed"      ? IconFolder::Kind::fixed
                  : kind == "Scalable" ? IconFolder::Kind::scalable
                                       : IconFolder::Kind::threshold;
    folder.smallest = number(section, "MinSize", folder.size);
    folder.largest = number(section, "MaxSize", folder.size);
    folder.threshold = number(section, "Threshold", 2);
    return folder;
}

}  // namespace

int IconFolder::distance(int pixels) const
{
    int low = size * scale;
    int high = low;
    if (kind == Kind::scalable) {
        low = smallest * scale;
        high = largest * scale;
    } else if (kind == Kind::threshold) {
        low = (size - threshold) * scale;
        high = (size + threshold) * scale;
    }
    return std::max({0, low - pixels, pixels - high});
}

IconThemeIndex IconThemeIndex::parse(std::string_view content)
{
    const Sections sections = readSections(content);
    IconThemeIndex index;
    const auto head = sections.find("Icon Theme");
    if (head == sections.end()) return index;
    index.inherits = list(text(head->second, "Inherits"));
    for (const std::string_view key : {"Directories", "ScaledDirectories"}) {
        for (const std::string& path : list(text(head->second, key))) {
            const auto section = sections.find(path);
            if (section != sections.end()) index.folders.push_back(folderOf(path, section->second));
        }
    }
    return index;
}

}  // namespace Platform
