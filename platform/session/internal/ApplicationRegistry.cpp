#include "platform/session/internal/ApplicationRegistry.h"

#include <sys/stat.h>

#include "platform/bundle/Bundle.h"

namespace Platform {

std::optional<ApplicationRegistry::Stamp> ApplicationRegistry::stampOf(const std::string& bundlePath)
{
    for (const char* place : {"/Contents/Info.plist", "/Info.plist", "/Resources/Info.plist"}) {
        struct stat status {};
        if (::stat((bundlePath + place).c_str(), &status) != 0) continue;
        return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    }
    return std::nullopt;
}

std::optional<ApplicationFacts> ApplicationRegistry::read(const std::string& bundlePath)
{
    const auto bundle = Bundle::open(bundlePath);
    auto executable = bundle ? bundle->executablePath() : std::nullopt;
    if (!executable) return std::nullopt;
    return ApplicationFacts{bundle->bundleIdentifier(), std::move(*executable)};
}

const ApplicationFacts* ApplicationRegistry::factsOf(const std::string& bundlePath)
{
    const auto stamp = stampOf(bundlePath);
    if (!stamp) {
        entries_.erase(bundlePath);
        return nullptr;
    }
    auto entry = entries_.find(bundlePath);
    if (entry == entries_.end() || entry->second.stamp != *stamp) {
        entry = entries_.insert_or_assign(bundlePath, Entry{*stamp, read(bundlePath)}).first;
    }
    return entry->second.facts ? &*entry->second.facts : nullptr;
}

}  // namespace Platform
