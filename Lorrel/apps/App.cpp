#include "Lorrel/apps/App.h"

#include <utility>

#include "Lorrel/files/FileIconManager.h"
#include "Lorrel/files/Path.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

namespace {

App::Url placeOf(const std::string& name)
{
    return App::Url::fromPath(Platform::SystemRoots::shared().applications() + "/" + name + ".app");
}

}  // namespace

App::App(const std::string& name, std::string identifier)
    : App(name, std::move(identifier), FileIconManager::shared().icon(name), placeOf(name))
{
}

App::App(std::string name, std::string identifier, Platform::ImageRef icon, Url baseUrl)
    : name_(std::move(name)), icon_(std::move(icon)), identifier_(std::move(identifier)), baseUrl_(std::move(baseUrl))
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
