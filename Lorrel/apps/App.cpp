#include "Lorrel/apps/App.h"

#include <utility>

#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

App::App(std::string name, std::string identifier)
    : name_(std::move(name)),
      icon_(FileIconManager::shared().icon(name_)),
      identifier_(std::move(identifier)),
      baseUrl_(Url::fromPath(Platform::SystemRoots::shared().applications() + "/" + name_ + ".app"))
{
}

std::uint64_t App::size(const std::optional<Url>& place)
{
    if (!place) return 0;
    switch (Path::type(place->path())) {
        case PathType::invalid:
            return 0;
        case PathType::file:
            return Path::fileSize(*place);
        case PathType::directory:
            return Path::size(*place);
    }
    return 0;
}

std::uint64_t App::totalSize() const
{
    return size(binaryFile_) + size(container_) + size(preferences_) + size(savedState_) + cachesSize();
}

std::uint64_t App::cachesSize() const
{
    std::uint64_t sum = 0;
    for (const Url& cache : caches_) sum += size(cache);
    return sum;
}

}  // namespace Lorrel
