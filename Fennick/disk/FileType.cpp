#include "Fennick/disk/FileType.h"

#include <algorithm>
#include <utility>

#include "platform/files/FileManager.h"
#include "platform/files/TypeIdentifier.h"

namespace Fennick {

namespace {

using Platform::Date;
using Platform::Url;

// In the order of the questions.
constexpr std::pair<const char*, FileType> kinds[] = {
    {"public.image", FileType::photo},     {"public.movie", FileType::video},     {"public.audio", FileType::audio},
    {"public.archive", FileType::archive}, {"com.adobe.pdf", FileType::document},
};

Date modificationDate(const Url& file)
{
    const auto attributes = Platform::FileManager::shared().attributes(file.path());
    return attributes ? attributes->modified : Date::distantPast();
}

}  // namespace

FileType fileType(const Url& file)
{
    const auto type = Platform::typeIdentifier(file);
    if (!type) return FileType::other;
    for (const auto& [kind, answer] : kinds) {
        if (Platform::typeConforms(*type, kind)) return answer;
    }
    return FileType::other;
}

std::vector<Url> sortedByModificationDate(const std::vector<Url>& files)
{
    std::vector<std::pair<Date, const Url*>> dated;
    dated.reserve(files.size());
    for (const Url& file : files) dated.emplace_back(modificationDate(file), &file);
    std::ranges::stable_sort(dated, std::greater(), &std::pair<Date, const Url*>::first);
    std::vector<Url> sorted;
    sorted.reserve(files.size());
    for (const auto& [date, file] : dated) sorted.push_back(*file);
    return sorted;
}

}  // namespace Fennick
