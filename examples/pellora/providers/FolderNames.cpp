#include "examples/pellora/providers/FolderNames.h"

#include <algorithm>
#include <filesystem>

namespace Pellora {

std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code failed;
    for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        names.push_back(entry->path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace Pellora
