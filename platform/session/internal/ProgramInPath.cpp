#include "platform/session/internal/ProgramInPath.h"

#include <algorithm>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/Environment.h"

namespace Platform {

std::optional<std::string> programInPath(std::string_view name)
{
    const std::string path = Environment::shared().variable("PATH").value_or("/usr/local/bin:/usr/bin:/bin");
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find(':', start), path.size());
        const std::string candidate = path.substr(start, end - start) + "/" + std::string(name);
        struct stat status {};
        const bool isFile = ::stat(candidate.c_str(), &status) == 0 && S_ISREG(status.st_mode);
        if (isFile && candidate.front() == '/' && end > start && ::access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
        start = end + 1;
    }
    return std::nullopt;
}

}  // namespace Platform
